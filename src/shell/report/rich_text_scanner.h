// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <optional>
#include <string_view>

namespace kelvarin
{

/// A word of rich text: \fs18 is "fs" with 18.
struct control_word
{
    std::string_view name;
    std::optional<int> parameter;
};

/// The letter of \'hh: the "ansi" of these documents is code page 1252.
char32_t ansi_letter(unsigned char byte);

/// Walks over a rich-text document. Nothing here fails: what is cut short ends with the document.
class rich_text_scanner
{
public:
    explicit rich_text_scanner(std::string_view document) : document_(document) {}

    bool at_end() const { return at_ >= document_.size(); }
    /// The byte ahead; there is one.
    char peek() const { return document_[at_]; }
    void advance() { ++at_; }
    /// Over the data of \bin, which may hold anything.
    void skip_bytes(std::optional<int> count);

    /// The bytes ahead that stand for themselves, up to braces, backslashes, controls and what is not ASCII.
    std::string_view take_plain();
    /// The letter ahead in UTF-8, a byte of Latin-1 where it is none.
    char32_t take_letter();
    /// Behind a backslash with a letter ahead: name, number and the one blank that ends them.
    control_word take_word();
    /// Behind \': the two digits, or nothing, and then nothing is taken.
    std::optional<unsigned char> take_hex();
    /// The rest of the group we are in; the brace that closes it is left.
    std::string_view take_group();

    static bool is_letter(char byte) { return (byte >= 'a' && byte <= 'z') || (byte >= 'A' && byte <= 'Z'); }

private:
    void skip_control();

    std::string_view document_;
    std::size_t at_ = 0;
};

} // namespace kelvarin
