// SPDX-License-Identifier: MIT
#include "platform/run_time_numbers.h"

#include "platform/runtime_failure.h"

#include <bit>
#include <cmath>
#include <limits>

namespace kelvarin
{

double round_half_even(double value)
{
    // nearbyint uses the rounding mode, which is always the default, to nearest even.
    return std::nearbyint(value);
}

std::int16_t to_int16(double value)
{
    using limits = std::numeric_limits<std::int16_t>;
    const double whole = round_half_even(value);
    // This form of the condition is true for NaN as well.
    if (!(whole >= limits::min() && whole <= limits::max())) throw runtime_failure(failure_number::overflow);
    return static_cast<std::int16_t>(whole);
}

float random_generator::next(float x)
{
    // Linear congruential generator with modulus 2^32, multiplier 1664525 and increment 1013904223: D. E. Knuth, "The
    // Art of Computer Programming", vol. 2, 3rd ed., 3.3.4, and W. H. Press et al., "Numerical Recipes in C", 2nd ed.,
    // sec. 7.1. The low bits of such a sequence have short periods, so only the upper 24 are used, the precision of a
    // float.
    constexpr std::uint32_t multiplier = 1664525u;
    constexpr std::uint32_t increment = 1013904223u;
    if (x < 0.0f) state_ = std::bit_cast<std::uint32_t>(x);
    if (x != 0.0f) state_ = multiplier * state_ + increment;
    return static_cast<float>(state_ >> 8) * 0x1p-24f;
}

} // namespace kelvarin
