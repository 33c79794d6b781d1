// SPDX-License-Identifier: MIT
#pragma once

#include "platform/runtime_failure.h"

#include <cmath>
#include <cstddef>
#include <span>

/// Safeguards of the solvers' own arithmetic: no infinity and no NaN is iterated on or handed back. Each
/// stage of a method passes its result through one of these.
namespace kelvarin
{

/// The value; runtime_failure 6 unless it is finite.
inline double finite(double value)
{
    if (!std::isfinite(value)) throw runtime_failure(failure_number::overflow);
    return value;
}

/// runtime_failure 6 unless all values are finite. Differences v - v are 0 then, and else their sum is not a
/// number; four sums side by side, since matrices pass through here.
inline void require_finite(std::span<const double> values)
{
    constexpr std::size_t lanes = 4;
    double sums[lanes] = {};
    std::size_t k = 0;
    for (; k + lanes <= values.size(); k += lanes)
        for (std::size_t lane = 0; lane < lanes; ++lane)
            sums[lane] += values[k + lane] - values[k + lane];
    for (; k < values.size(); ++k)
        sums[0] += values[k] - values[k];
    if (sums[0] + sums[1] + sums[2] + sums[3] != 0.0) throw runtime_failure(failure_number::overflow);
}

/// The quotient; runtime_failure 11 where the divisor is 0, 6 where divisor or quotient is not finite.
inline double quotient(double dividend, double divisor)
{
    if (divisor == 0.0) throw runtime_failure(failure_number::division_by_zero);
    return finite(dividend / finite(divisor));
}

} // namespace kelvarin
