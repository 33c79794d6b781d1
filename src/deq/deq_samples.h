// SPDX-License-Identifier: MIT
#pragma once

#include "deq/deq_content.h"

#include <array>

namespace kelvarin
{

inline constexpr std::size_t deq_sample_count = 4;

/// The problems of the Examples menu, in its order. Each can be solved by every method.
std::array<deq_content, deq_sample_count> deq_samples();

} // namespace kelvarin
