// SPDX-License-Identifier: MIT
#include "shell/window/report_pieces.h"

#include "shell/window/report_cells.h"

#include <algorithm>
#include <string>
#include <string_view>

namespace kelvarin
{

namespace
{

struct piece_bounds
{
    std::size_t bytes = 0;
    std::size_t tabs = 0;
    std::size_t runs = 0;
};

constexpr piece_bounds bounds_of_texts = {.bytes = 2000, .tabs = 60, .runs = 250};
/// A row isn't wrapped, and breaking it would tear its columns.
constexpr piece_bounds bounds_of_rows = {.bytes = 12000, .tabs = 600, .runs = 1000};

bool begins_letter(char byte)
{
    return (static_cast<unsigned char>(byte) & 0xC0) != 0x80;
}

/// The number of bytes at the start of `text` that a piece takes which has room for `bounds`. Ends at a letter.
std::size_t taken_of(std::string_view text, const piece_bounds& bounds)
{
    std::size_t end = 0;
    for (std::size_t tabs = 0; end < text.size() && end < bounds.bytes; ++end)
        if (text[end] == '\t' && ++tabs > bounds.tabs) break;
    while (end > 0 && end < text.size() && !begins_letter(text[end]))
        --end;
    return end;
}

/// The first part of `rest` within the bounds.
styled_line first_part(std::span<const styled_run> rest, std::size_t first_byte, piece_bounds room)
{
    styled_line part;
    for (const styled_run& run : rest) {
        if (part.size() == room.runs) break;
        const std::string_view text = std::string_view(run.text).substr(part.empty() ? first_byte : 0);
        const std::size_t taken = taken_of(text, room);
        if (taken == 0 && !text.empty()) break;
        part.push_back({.text = std::string(text.substr(0, taken)),
                        .bold = run.bold,
                        .italic = run.italic,
                        .underline = run.underline,
                        .colour = run.colour,
                        .font = run.font,
                        .family = run.family,
                        .size = run.size});
        if (taken < text.size()) break;
        room.bytes -= taken;
        room.tabs -= static_cast<std::size_t>(std::ranges::count(text, '\t'));
    }
    return part;
}

/// Ends a part that is continued behind its last blank, if there is one near its end: words stay whole.
void end_at_word(styled_line& part)
{
    constexpr std::size_t near_end = 200;
    std::string& text = part.back().text;
    const std::size_t blank = text.rfind(' ');
    if (blank != text.npos && blank > 0 && text.size() - blank <= near_end) text.resize(blank + 1);
}

std::ptrdiff_t utf16_units(std::string_view text)
{
    std::ptrdiff_t units = 0;
    for (const char byte : text) {
        if (begins_letter(byte)) ++units;
        // Letters of four bytes are pairs.
        if (static_cast<unsigned char>(byte) >= 0xF0) ++units;
    }
    return units;
}

} // namespace

report_piece piece_reader::next()
{
    const styled_line& line = lines_[line_];
    report_piece piece = {{}, line_, from_};
    const std::span<const styled_run> rest = std::span(line).subspan(run_);
    const auto is_whole = [&] {
        return piece.part.size() == rest.size() &&
               (rest.empty() ||
                (piece.part.size() == 1 ? byte_ : 0) + piece.part.back().text.size() == rest.back().text.size());
    };
    piece.part = first_part(rest, byte_, bounds_of_texts);
    if (!is_whole()) {
        styled_line longer = first_part(rest, byte_, bounds_of_rows);
        if (is_table_row(longer)) piece.part = std::move(longer);
    }
    if (is_whole()) {
        ++line_;
        run_ = byte_ = 0;
        from_ = 0;
        return piece;
    }
    end_at_word(piece.part);
    for (const styled_run& run : piece.part)
        from_ += utf16_units(run.text);
    const std::size_t last = piece.part.size() - 1;
    byte_ = (last == 0 ? byte_ : 0) + piece.part.back().text.size();
    run_ += last;
    if (byte_ == line[run_].text.size()) {
        ++run_;
        byte_ = 0;
    }
    return piece;
}

} // namespace kelvarin
