// SPDX-License-Identifier: MIT
#pragma once

#include <algorithm>
#include <cmath>
#include <limits>

namespace kelvarin::test
{

/// How many decimal digits of `expected` the number `actual` shows: -log10 of the relative error, of the
/// absolute one where `expected` is 0; 0 for what is not a number or wrong altogether, 17 for equality.
inline double digits_shown(double actual, double expected)
{
    constexpr double all = std::numeric_limits<double>::max_digits10;
    if (!std::isfinite(actual) || !std::isfinite(expected)) return 0.0;
    const double error = std::fabs(actual - expected) / (expected == 0.0 ? 1.0 : std::fabs(expected));
    return error == 0.0 ? all : std::clamp(-std::log10(error), 0.0, all);
}

} // namespace kelvarin::test
