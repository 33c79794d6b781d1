// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>

namespace kelvarin
{

/// One plain line about the likely cause of a refused expression, for habits from other programs: `x**2`, `2x`, `5,2`,
/// `v0 = 100`, signs from a word processor. Empty where none of them is seen; an accepted expression may show one as
/// well, so ask only about a refused one.
std::string syntax_hint(std::string_view expression);

} // namespace kelvarin
