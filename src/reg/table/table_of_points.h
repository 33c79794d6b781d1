// SPDX-License-Identifier: MIT
#pragma once

#include "reg/table/table_content.h"
#include "shell/document/named_columns.h"

#include <string_view>

namespace kelvarin
{

/// The points of a run as a table of just their size: cells in the form of format_number, trimmed. Numbers that are not
/// finite leave blank cells.
table_content table_of_points(const named_columns& points, std::string_view title);

} // namespace kelvarin
