// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <vector>

namespace kelvarin
{

/// Lines of as many cells each, as text in columns two blanks apart, without blanks at the ends of lines.
std::string text_columns(const std::vector<std::vector<std::string>>& lines);

} // namespace kelvarin
