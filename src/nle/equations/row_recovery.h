// SPDX-License-Identifier: MIT
#pragma once

#include "nle/equations/equation_rows.h"
#include "shell/document/json_value.h"
#include "shell/report/json_writer.h"

#include <span>
#include <vector>

/// Rows in the JSON of recovery files.
namespace kelvarin
{

/// Writes the member "rows".
void write_rows_member(json_writer& text, std::span<const equation_row> rows);

/// The rows of an object written by write_rows_member. Throws json_mismatch if there are none.
std::vector<equation_row> read_rows_member(const json_value& object);

} // namespace kelvarin
