// SPDX-License-Identifier: MIT
#pragma once

#include "reg/table/column_statistics.h"
#include "reg/table/table_content.h"
#include "shell/report/json_writer.h"

#include <span>

namespace kelvarin
{

/// The members of an object that hold the used part of a table: "rows", "columns" with name and formula, "cells" row by
/// row as they stand, "model" and "guesses".
void write_table_members(json_writer& writer, const table_content& content);

/// The member "columns": name, number of values and moments of each column.
void write_statistics_members(json_writer& writer, std::span<const column_statistics> columns);

} // namespace kelvarin
