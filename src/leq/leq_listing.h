// SPDX-License-Identifier: MIT
#pragma once

#include "leq/leq_content.h"

#include <filesystem>
#include <string>

namespace kelvarin
{

/// A problem as it is printed, in lines that end in LF: heading, file, the matrix with its betas, the equations, their
/// number. Cells that are empty or not numeric are shown as they are.
std::string leq_listing(const leq_content& content, const std::filesystem::path& path);

} // namespace kelvarin
