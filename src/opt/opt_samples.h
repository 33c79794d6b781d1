// SPDX-License-Identifier: MIT
#pragma once

#include "opt/opt_content.h"

#include <array>

namespace kelvarin
{

inline constexpr std::size_t opt_sample_count = 3;

/// The problems of the Examples menu, in its order. Not every method solves each: the second falls without bound, and
/// the third leaves the domain of its power under Dfpmin.
std::array<opt_content, opt_sample_count> opt_samples();

} // namespace kelvarin
