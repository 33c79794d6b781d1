// SPDX-License-Identifier: MIT
#pragma once

#include "numeric/arithmetic_check.h"

#include <cmath>
#include <span>

/// Sums over vectors, each runtime_failure 6 when it is not finite.
namespace kelvarin
{

inline double dot(std::span<const double> a, std::span<const double> b)
{
    double sum = 0.0;
    for (std::size_t i = 0; i < a.size(); ++i)
        sum += a[i] * b[i];
    return finite(sum);
}

inline double sum_of_magnitudes(std::span<const double> values)
{
    double sum = 0.0;
    for (const double value : values)
        sum += std::fabs(value);
    return finite(sum);
}

inline double norm(std::span<const double> values)
{
    return std::sqrt(dot(values, values));
}

} // namespace kelvarin
