// SPDX-License-Identifier: MIT
#pragma once

#include "platform/message_box.h"
#include "shell/document/cell_columns.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

/// Blocks of cells in the form of the clipboard: cells of a row are separated by tabs, rows by line ends; a cell that
/// contains either, or a quotation mark, is quoted (quotation marks inside are doubled).
namespace kelvarin
{

/// A range of selected cells, inside the grid and not empty.
struct cell_range
{
    int row = 0;
    int column = 0;
    int rows = 1;
    int columns = 1;
};

/// Rows of cells; they may differ in length.
using cell_block = std::vector<std::vector<std::string>>;

/// The selected cells as text; LF separates rows and doesn't follow the last one.
std::string block_text(const cell_columns& cells, cell_range range);

/// Reads a block with any kind of line ends; one at the very end starts no further row.
cell_block read_block(std::string_view text);

/// The block with points in place of commas. Returns nullopt unless every cell that is not empty is a number with a
/// decimal comma or a whole number, and at least one has a comma. The user must confirm the change: "1,500" may mean
/// 1500.
std::optional<cell_block> decimal_comma_block(const cell_block& block);

/// The cells that a block covers when it is pasted at the range's first cell, clipped to the grid. A block of one cell
/// fills the range.
cell_range pasted_range(const cell_columns& cells, cell_range range, const cell_block& block);

/// Pastes a block into pasted_range. Returns the texts, other than blank ones, that lie outside the grid, row by row.
std::vector<std::string> paste_block(cell_columns& cells, cell_range range, const cell_block& block);

/// The box that lists cells outside the grid.
message_box left_out_box(const std::vector<std::string>& left_out);

void clear_block(cell_columns& cells, cell_range range);

} // namespace kelvarin
