// SPDX-License-Identifier: MIT
#pragma once

#include "platform/message_box.h"
#include "shell/document/cell_columns.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

/// Blocks of cells as the clipboard carries them: cells of a row separated by tabs, rows by line ends, and
/// around a cell that holds either, or a quotation mark, quotation marks (doubled inside).
namespace kelvarin
{

/// Selected cells; within the grid and not empty.
struct cell_range
{
    int row = 0;
    int column = 0;
    int rows = 1;
    int columns = 1;
};

/// Rows of cells; they may differ in length.
using cell_block = std::vector<std::vector<std::string>>;

/// The selected cells as text; between rows stands LF, behind the last one nothing.
std::string block_text(const cell_columns& cells, cell_range range);

/// Reads a block, whatever its line ends; one at the very end opens no further row.
cell_block read_block(std::string_view text);

/// The block with points for commas, where every cell that is not empty reads as a number with a decimal comma
/// or as a whole number, and at least one has a comma. To be offered, never done unasked: "1,500" may be meant
/// as 1500.
std::optional<cell_block> decimal_comma_block(const cell_block& block);

/// The cells that a block covers when it is pasted from the range's first cell on, as far as they are inside the grid.
/// A block of one cell fills the range.
cell_range pasted_range(const cell_columns& cells, cell_range range, const cell_block& block);

/// Pastes a block in that way. Returns the texts, other than blank ones, that lay outside the grid, row by row.
std::vector<std::string> paste_block(cell_columns& cells, cell_range range, const cell_block& block);

/// The box that names cells which did not fit.
message_box left_out_box(const std::vector<std::string>& left_out);

void clear_block(cell_columns& cells, cell_range range);

} // namespace kelvarin
