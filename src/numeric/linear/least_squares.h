// SPDX-License-Identifier: MIT
#pragma once

#include "numeric/linear/matrix.h"

#include <span>

namespace kelvarin
{

/// The least-squares solution of the square system a x = b by Householder QR with column interchanges. The
/// rank is the number of pivots above rank_tolerance times the first; unknowns whose columns add nothing to
/// it are 0 (the basic solution). a and b are used up. runtime_failure 6 when x is not finite.
/// [GolubVanLoan1996] alg. 5.4.1, sec. 5.5
void solve_least_squares(matrix& a, std::span<double> b, double rank_tolerance, std::span<double> x);

} // namespace kelvarin
