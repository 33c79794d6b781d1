// SPDX-License-Identifier: MIT
#pragma once

#include "nle/nle_content.h"

#include <array>

namespace kelvarin
{

inline constexpr std::size_t nle_sample_count = 4;

/// The problems of the Examples menu, in its order: explicit equations alone, one unknown with a range, two and three
/// unknowns with guesses. Each runs without changes.
std::array<nle_content, nle_sample_count> nle_samples();

} // namespace kelvarin
