// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <vector>

namespace kelvarin
{

/// Lines with equal numbers of cells as text in columns, separated by two blanks, without trailing blanks.
std::string text_columns(const std::vector<std::vector<std::string>>& lines);

} // namespace kelvarin
