// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <optional>
#include <string_view>

namespace kelvarin
{

/// A control word of rich text: \fs18 is "fs" with 18.
struct control_word
{
    std::string_view name;
    std::optional<int> parameter;
};

/// The character of \'hh: the "ansi" of these documents is code page 1252.
char32_t ansi_letter(unsigned char byte);

/// Scans a rich-text document. No function fails: a token that is cut short ends with the document.
class rich_text_scanner
{
public:
    explicit rich_text_scanner(std::string_view document) : document_(document) {}

    bool at_end() const { return at_ >= document_.size(); }
    /// The next byte; not to be called at the end.
    char peek() const { return document_[at_]; }
    void advance() { ++at_; }
    /// Skips the data of \bin, which may contain any bytes.
    void skip_bytes(std::optional<int> count);

    /// Takes the text up to the next brace, backslash, control or non-ASCII byte.
    std::string_view take_plain();
    /// Takes one UTF-8 character; an invalid byte is taken as Latin-1.
    char32_t take_letter();
    /// After a backslash, with a letter next: name, number and the one blank that ends them.
    control_word take_word();
    /// After \': takes the two digits. Returns nullopt and takes nothing if there are none.
    std::optional<unsigned char> take_hex();
    /// Takes the rest of the current group, without its closing brace.
    std::string_view take_group();

    static bool is_letter(char byte) { return (byte >= 'a' && byte <= 'z') || (byte >= 'A' && byte <= 'Z'); }

private:
    void skip_control();

    std::string_view document_;
    std::size_t at_ = 0;
};

} // namespace kelvarin
