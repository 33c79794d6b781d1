// SPDX-License-Identifier: MIT
#pragma once

#include "platform/message_box.h"
#include "reg/column_analysis.h"

#include <variant>

namespace kelvarin
{

/// Fills two free columns of a table, adding columns and rows if there are not enough, with `count` (2 or more) evenly
/// spaced values of x over the range of the data, and the value, derivative or integral from the first x on by the
/// method of the request. A cell stays blank where the method fails. The columns are named after those of the data.
///
/// Returns the column of x, or the box of a request that has no such points; then nothing is changed.
std::variant<int, message_box> fill_table_of_values(table_content& content, const analysis_request& request, int count);

} // namespace kelvarin
