// SPDX-License-Identifier: MIT
#pragma once

#include <algorithm>
#include <cassert>
#include <cstddef>
#include <span>

namespace kelvarin
{

/// The index i of the interval [x[i], x[i + 1]) of ascending nodes that holds `at`; outside of the nodes the first or
/// the last one. At least two nodes.
inline std::size_t interval_of(std::span<const double> x, double at)
{
    assert(x.size() >= 2);
    const auto behind = std::ranges::upper_bound(x, at);
    const auto index = static_cast<std::size_t>(behind - x.begin());
    return std::clamp<std::size_t>(index, 1, x.size() - 1) - 1;
}

} // namespace kelvarin
