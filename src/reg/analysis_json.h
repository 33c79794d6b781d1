// SPDX-License-Identifier: MIT
#pragma once

#include "reg/column_analysis.h"
#include "reg/matrix_work.h"
#include "shell/report/json_writer.h"

namespace kelvarin
{

/// The members that an analysis of columns, or a calculation with matrices, adds to the answer to a table: of a request
/// that failed only what was asked for.
void write_analysis_members(json_writer& writer, const analysis_outcome& outcome);
void write_matrix_members(json_writer& writer, const matrix_outcome& outcome);

} // namespace kelvarin
