// SPDX-License-Identifier: MIT
#pragma once

#include "leq/leq_content.h"

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
std::string block_text(const leq_content& content, cell_range range);

/// Reads a block, whatever its line ends; one at the very end opens no further row.
cell_block read_block(std::string_view text);

/// The block with points for commas, where every cell that is not empty reads as a number with a decimal comma
/// or as a whole number, and at least one has a comma. To be offered, never done unasked: "1,500" may be meant
/// as 1500.
std::optional<cell_block> decimal_comma_block(const cell_block& block);

/// Puts a block into the grid from the range's first cell on; a block of one cell fills the range. Answers
/// the texts of the cells that lay outside the grid.
std::vector<std::string> paste_block(leq_content& content, cell_range range, const cell_block& block);

/// What is said of cells that did not fit.
message_box left_out_box(const std::vector<std::string>& left_out);

void clear_block(leq_content& content, cell_range range);

} // namespace kelvarin
