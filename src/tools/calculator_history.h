// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

/// What a calculator shows of the lines that it solved, and how they come back.
namespace kelvarin
{

/// The masks that answers can be shown by, in the order of their list.
const std::vector<std::string_view>& answer_masks();

/// A value by a mask; its plain text, with all digits, where there is none.
std::string answer_text(double value, std::string_view mask);

/// What a piece of a history entry is; a window gives each kind a colour.
enum class piece_kind
{
    prompt,
    text,
    operator_sign,
    parenthesis,
    value
};

struct history_piece
{
    piece_kind kind = piece_kind::text;
    std::string text;

    friend bool operator==(const history_piece&, const history_piece&) = default;
};

/// A line cut into its operators, its parentheses and what stands between them.
std::vector<history_piece> pieces_of_line(std::string_view line);

/// A solved line and the text of its value.
struct history_entry
{
    std::string line;
    std::string value;
};

/// The entry as it is shown, in one line: "> ", the line, a tab, " = " and the value.
std::vector<history_piece> pieces_of_entry(const history_entry& entry);

/// The solved lines, oldest first, and a walk through them. What stood in the entry field when a walk began is
/// kept and comes back at its end.
class calculator_history
{
public:
    void add(history_entry entry);
    void clear();
    const std::vector<history_entry>& entries() const { return entries_; }

    /// The line before or behind the one where the walk stands, passing over those that read as `present`, the
    /// text of the entry field. Nothing where there is none.
    std::optional<std::string> earlier(std::string_view present);
    std::optional<std::string> later(std::string_view present);
    /// Ends a walk: the next one begins with the last line.
    void end_walk();

private:
    std::vector<history_entry> entries_;
    /// Where the walk stands: at an entry, or behind the last one at the kept text.
    std::size_t position_ = 0;
    std::string kept_;
};

} // namespace kelvarin
