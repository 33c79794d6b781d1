// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>

namespace kelvarin
{

/// `value` rounded to a whole number, halves to the even neighbour.
double round_half_even(double value);

/// `value` as a 16-bit whole number, halves to the even neighbour. Throws runtime_failure 6 outside -32768 to 32767.
std::int16_t to_int16(double value);

/// The generator of `rand`: a single-precision sequence in [0, 1) with three modes.
class random_generator
{
public:
    /// `x` below 0 restarts the sequence from x and returns its first number, above 0 returns the next number, 0
    /// repeats the last one (before the first call: the number of the initial state).
    float next(float x);

    /// Restarts the sequence from `seed`.
    void seed(std::uint32_t seed) { state_ = seed; }

    friend bool operator==(const random_generator&, const random_generator&) = default;

private:
    std::uint32_t state_ = 0x4B564E31u;
};

} // namespace kelvarin
