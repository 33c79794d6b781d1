// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>

namespace kelvarin
{

/// `value` rounded to a whole number, halves to the even neighbour.
double round_half_even(double value);

/// `value` as a 16-bit whole number, halves to the even neighbour; throws runtime_failure 6 outside
/// -32768 to 32767.
std::int16_t to_int16(double value);

/// The generator behind `rand`: a single-precision sequence in [0, 1) with three modes.
class random_generator
{
public:
    /// `x` below 0 restarts the sequence from x and gives its first number, above 0 gives the next number,
    /// 0 repeats the last one (before any draw: the number of the starting state).
    float next(float x);

    /// Starts the sequence anew from `seed`.
    void seed(std::uint32_t seed) { state_ = seed; }

    friend bool operator==(const random_generator&, const random_generator&) = default;

private:
    std::uint32_t state_ = 0x4B564E31u;
};

} // namespace kelvarin
