// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

/// The history of solved lines: how it is displayed, and how lines are recalled.
namespace kelvarin
{

/// The masks for answers, in the order of their list.
const std::vector<std::string_view>& answer_masks();

/// A value formatted by a mask; its plain text with all digits if the mask is empty.
std::string answer_text(double value, std::string_view mask);

/// The role of a piece of a history entry, which determines its colour.
enum class history_piece_kind
{
    prompt,
    text,
    operator_sign,
    parenthesis,
    value
};

struct history_piece
{
    history_piece_kind kind = history_piece_kind::text;
    std::string text;

    friend bool operator==(const history_piece&, const history_piece&) = default;
};

/// Splits a line into operators, parentheses and the texts between them.
std::vector<history_piece> pieces_of_line(std::string_view line);

/// A solved line and the text of its value.
struct history_entry
{
    std::string line;
    std::string value;
};

/// The displayed entry on one line: "> ", the line, a tab, " = " and the value.
std::vector<history_piece> pieces_of_entry(const history_entry& entry);

/// The solved lines, oldest first, and a position in them for recall. The entry field's text at the beginning of a
/// recall is stored and comes back at its end.
class calculator_history
{
public:
    void add(history_entry entry);
    void clear();
    const std::vector<history_entry>& entries() const { return entries_; }

    /// The line before or after the position, skipping lines equal to `present`, the text of the entry field. Returns
    /// nullopt if there is none.
    std::optional<std::string> earlier(std::string_view present);
    std::optional<std::string> later(std::string_view present);
    /// Ends a recall: the next one begins with the last line.
    void end_walk();

private:
    std::vector<history_entry> entries_;
    /// Index of the recalled entry; entries_.size() stands for the stored text.
    std::size_t position_ = 0;
    std::string kept_;
};

} // namespace kelvarin
