// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>

namespace kelvarin
{

/// Formats a finite double by a numeric mask of `0` (forced digit), `#` (optional digit), at most one `.`
/// and at most one exponent `E+00` or `E-00`. Halves of the value's 15 significant digits round away from
/// zero; what rounds to zero has no sign. In the exponent form the digits in front of the point are those of
/// the mask's integer part, and an exponent with more digits than the mask's is printed whole. The point of
/// the mask is always printed: 5 by "0.###" is "5.", 0.5 by "#.#" is ".5". Any other character
/// counts as "#".
std::string format_masked(double value, std::string_view mask);

} // namespace kelvarin
