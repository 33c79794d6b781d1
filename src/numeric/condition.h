// SPDX-License-Identifier: MIT
#pragma once

#include "numeric/matrix.h"

namespace kelvarin
{

/// The reciprocal of the condition number of `a` (n x n) in the maximum norm, after its rows and then its
/// columns have been scaled by powers of two to largest elements between 1/2 and 1: so the units of equations
/// and unknowns play no part. Near 1 for a well conditioned matrix; 0 where it is singular, or where its inverse
/// is too large for a double. [GolubVanLoan1996] sec. 2.7 and 3.5.2
double reciprocal_condition(matrix a);

} // namespace kelvarin
