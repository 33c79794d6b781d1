// SPDX-License-Identifier: MIT
#include "tools/calculator_history.h"

#include "platform/format_mask.h"
#include "platform/run_time_text.h"

#include <utility>

namespace kelvarin
{

const std::vector<std::string_view>& answer_masks()
{
    static const std::vector<std::string_view> masks = {
        "0",          "0.0",         "0.00",         "0.000",         "0.0000",
        "0.00000",    "0.000000",    "0.0000000",    "0.00000000",    "#.#",
        "#0.#",       "#0.##",       "#0.###",       "#0.####",       "#0.#####",
        "#0.######",  "#0.#######",  "#0.########",  "0.00E+00",      "0.000E+00",
        "0.000#E+00", "0.000##E+00", "0.000###E+00", "0.0000###E+00", "0.00000###E+000",
    };
    return masks;
}

std::string answer_text(double value, std::string_view mask)
{
    return mask.empty() ? plain_text(value) : format_masked(value, mask);
}

std::vector<history_piece> pieces_of_line(std::string_view line)
{
    constexpr std::string_view operators = "+-/*^";
    constexpr std::string_view parentheses = "()";
    std::vector<history_piece> pieces;
    for (const char c : line) {
        if (operators.find(c) != std::string_view::npos) {
            pieces.push_back({history_piece_kind::operator_sign, std::string(1, c)});
        } else if (parentheses.find(c) != std::string_view::npos) {
            pieces.push_back({history_piece_kind::parenthesis, std::string(1, c)});
        } else {
            if (pieces.empty() || pieces.back().kind != history_piece_kind::text)
                pieces.push_back({history_piece_kind::text, ""});
            pieces.back().text += c;
        }
    }
    return pieces;
}

std::vector<history_piece> pieces_of_entry(const history_entry& entry)
{
    std::vector<history_piece> pieces = {{history_piece_kind::prompt, "> "}};
    for (history_piece& piece : pieces_of_line(entry.line))
        pieces.push_back(std::move(piece));
    pieces.push_back({history_piece_kind::value, "\t = " + entry.value});
    return pieces;
}

void calculator_history::add(history_entry entry)
{
    entries_.push_back(std::move(entry));
    end_walk();
}

void calculator_history::clear()
{
    entries_.clear();
    end_walk();
}

std::optional<std::string> calculator_history::earlier(std::string_view present)
{
    std::size_t place = position_;
    while (place > 0 && entries_[place - 1].line == present)
        --place;
    if (place == 0) return std::nullopt;
    if (position_ == entries_.size()) kept_ = present;
    position_ = place - 1;
    return entries_[position_].line;
}

std::optional<std::string> calculator_history::later(std::string_view present)
{
    if (position_ >= entries_.size()) return std::nullopt;
    do
        ++position_;
    while (position_ < entries_.size() && entries_[position_].line == present);
    if (position_ < entries_.size()) return entries_[position_].line;
    return std::exchange(kept_, {});
}

void calculator_history::end_walk()
{
    position_ = entries_.size();
    kept_.clear();
}

} // namespace kelvarin
