// SPDX-License-Identifier: MIT
#pragma once

#include "deq/deq_content.h"

#include <filesystem>
#include <string>

namespace kelvarin
{

/// A problem as it is printed, in lines that end in LF: heading and file name (empty if there is no file), then a block
/// for each row with its number, equation, initial value and comment, then the independent variable and its range.
std::string deq_listing(const deq_content& content, const std::filesystem::path& path);

} // namespace kelvarin
