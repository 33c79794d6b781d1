// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <string>

namespace kelvarin
{

/// A number in decimal: sign, then the digits d1 d2 d3 ... meaning d1.d2d3... times ten to `exponent`,
/// without trailing zeros. Zero has no digits and exponent 0.
struct decimal_digits
{
    bool negative = false;
    std::string digits;
    int exponent = 0;

    bool is_zero() const { return digits.empty(); }
    /// The digit at ten to the power `position`; "0" outside the digits.
    char digit_at(int position) const;
};

/// The 15 significant digits from which the texts of numbers are made, or as many as `count` (1 to 17). `value` must be
/// finite.
decimal_digits significant_digits(double value, int count = 15);

/// `number` with its first `kept` digits, halves rounded away from zero; a `kept` below 0 gives zero.
decimal_digits rounded_to(decimal_digits number, int kept);

/// Appends "E", a sign (a plus only if `plus`) and at least `least_digits` digits.
void append_exponent(std::string& text, int exponent, std::size_t least_digits, bool plus);

} // namespace kelvarin
