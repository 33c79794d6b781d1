// SPDX-License-Identifier: MIT
#pragma once

#include "numeric/linear/matrix.h"

namespace kelvarin
{

/// The reciprocal of the condition number of `a` (n x n) in the maximum norm. Near 1 for a well conditioned matrix;
/// 0 where it is singular, or where its inverse or the condition number is too large for a double.
/// [GolubVanLoan1996] sec. 2.7
double reciprocal_condition(matrix a);

} // namespace kelvarin
