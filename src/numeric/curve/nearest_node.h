// SPDX-License-Identifier: MIT
#pragma once

#include "platform/runtime_failure.h"

#include <cmath>
#include <cstddef>
#include <span>

namespace kelvarin
{

/// The index of the node nearest to `at`, the first of several. Throws runtime_failure 9 where there is no node.
inline std::size_t nearest_node(std::span<const double> x, double at)
{
    if (x.empty()) throw runtime_failure(failure_number::subscript);
    std::size_t nearest = 0;
    for (std::size_t i = 1; i < x.size(); ++i) {
        if (std::fabs(at - x[i]) < std::fabs(at - x[nearest])) nearest = i;
    }
    return nearest;
}

} // namespace kelvarin
