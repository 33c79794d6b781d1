// SPDX-License-Identifier: MIT
#pragma once

#include "platform/message_box.h"
#include "reg/table/table_content.h"

#include <optional>
#include <string>
#include <string_view>

/// A table file has a line for the title, one with the numbers of rows and columns, one of column names (with "=" and
/// the formula, for a formula column), the data rows, a line "*", the model, and the initial guesses as name=value.
/// Tabs separate names, cells and guesses; only the first "=" separates.
namespace kelvarin
{

/// The numbers in front of and behind the first blank of a file's second line; nullopt unless there is a blank and both
/// begin with a number above 0.
struct table_extent
{
    double rows = 0.0;
    double columns = 0.0;
};
std::optional<table_extent> table_extent_of(std::string_view line);

/// Reads a file. `current` supplies what a file doesn't contain: the size that a new table has and the digits of
/// calculated cells, to which the cells of formula columns are shortened. Nothing is calculated. The rows of the file
/// decide how long the table is, and cells or names beyond the size in its second line widen it; a table that grows
/// gets one row more. The file may end anywhere behind its column names.
///
/// Returns nullopt if the text is no table, or if the table would exceed 16-bit row and column numbers or
/// most_table_cells.
std::optional<table_content> read_table(std::string_view text, const table_content& current);

/// The box for a file that is not opened: `failure` says why it could not be read; if it is empty, the box says why
/// `text`, which read_table refuses, is no table.
message_box table_open_refusal(std::string_view failure, std::string_view text);

/// The text of a file.
std::string write_table(const table_content& content);

} // namespace kelvarin
