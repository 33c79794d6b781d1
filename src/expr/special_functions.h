// SPDX-License-Identifier: MIT
#pragma once

#include "expr/formulas.h"

namespace kelvarin::formula
{

/// 1 * 2 * ... * n for n the argument as a 16-bit whole number.
checked_real factorial(checked_real x);
/// Power series below 3.5, the asymptotic series of 12 terms above. [AbramowitzStegun1972] 7.1.6, 7.1.23
checked_real error_function(checked_real x);
/// Sums for whole and half arguments, else recurrence up to 10 and the asymptotic series; reflection for
/// negative arguments. [AbramowitzStegun1972] 6.3.2, 6.3.4, 6.3.18, 6.3.7
checked_real digamma(checked_real x);

} // namespace kelvarin::formula
