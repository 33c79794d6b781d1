// SPDX-License-Identifier: MIT
#pragma once

#include "opt/opt_content.h"

#include <filesystem>
#include <string>

namespace kelvarin
{

/// The printed listing, in lines that end in LF: heading and file name (empty if there is no file), the target, then a
/// line for each row, with its comment below.
std::string opt_listing(const opt_content& content, const std::filesystem::path& path);

} // namespace kelvarin
