// SPDX-License-Identifier: MIT
#pragma once

#include "platform/run_listener.h"
#include "reg/column_analysis.h"

namespace kelvarin
{

struct value_table : run_outcome
{
    /// The filled table, and its column of x.
    table_content content;
    int column = 0;
};

/// Fills two free columns of a table, adding columns and rows if there are not enough, with `count` (2 or more) evenly
/// spaced values of x over the range of the data, and the value, derivative or integral from the first x on by the
/// method of the request. A cell stays blank where the method fails. The columns are named after those of the data.
///
/// Without enough points the outcome is their box.
value_table fill_table_of_values(table_content content, const analysis_request& request, int count,
                                 run_listener& listener);

} // namespace kelvarin
