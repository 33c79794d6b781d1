// SPDX-License-Identifier: MIT
#pragma once

#include "nle/nle_content.h"

#include <filesystem>
#include <string>

namespace kelvarin
{

/// A problem as it is printed, in lines that end in LF: heading and file name (empty if there is no file), then a block
/// for each row with its number, equation, guess and comment, then the bounds of a single equation.
std::string nle_listing(const nle_content& content, const std::filesystem::path& path);

} // namespace kelvarin
