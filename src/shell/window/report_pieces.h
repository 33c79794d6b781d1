// SPDX-License-Identifier: MIT
#pragma once

#include "shell/report/styled_text.h"

#include <cstddef>
#include <span>

namespace kelvarin
{

/// A part of a line that is shown as a block of its own. Lines that no toolkit lays out in reasonable time (very long
/// words, thousands of tabs or of changes of style) are shown in several blocks, one below the other.
struct report_piece
{
    styled_line part;
    /// The line, and where in it the part begins, in UTF-16 units.
    std::size_t line = 0;
    std::ptrdiff_t from = 0;
};

/// Breaks lines into pieces, one after the other, in a time that depends on the piece alone. A row of a table stays
/// whole unless it is far wider than any table.
class piece_reader
{
public:
    /// `lines` must outlive the reader.
    explicit piece_reader(std::span<const styled_line> lines) : lines_(lines) {}

    bool at_end() const { return line_ == lines_.size(); }
    /// The next piece; a line without text has one, which is empty.
    report_piece next();

private:
    std::span<const styled_line> lines_;
    std::size_t line_ = 0;
    /// Where the next piece begins: a run of the line, and a byte of its text.
    std::size_t run_ = 0;
    std::size_t byte_ = 0;
    std::ptrdiff_t from_ = 0;
};

} // namespace kelvarin
