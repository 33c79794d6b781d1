// SPDX-License-Identifier: MIT
#pragma once

#include "platform/runtime_failure.h"

#include <algorithm>
#include <cmath>
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

/// runtime_failure 6 unless all values are finite.
inline void require_finite(std::span<const double> values)
{
    if (!std::ranges::all_of(values, [](double value) { return std::isfinite(value); }))
        throw runtime_failure(failure_number::overflow);
}

/// The quotient; runtime_failure 11 where the divisor is 0, 6 where divisor or quotient is not finite.
inline double quotient(double dividend, double divisor)
{
    if (divisor == 0.0) throw runtime_failure(failure_number::division_by_zero);
    return finite(dividend / finite(divisor));
}

} // namespace kelvarin
