// SPDX-License-Identifier: MIT
#pragma once

#include "numeric/linear/matrix.h"

#include <span>

namespace kelvarin
{

/// How far x is from solving a x = b: of all rows the largest difference between both sides, over the largest
/// product or right side of its row. The difference is summed as if in twice the precision, since that of a good
/// solution is all rounding; no overflow on the way. All arguments are finite. [OgitaRumpOishi2005] alg. 5.3
double relative_residual(const matrix& a, std::span<const double> x, std::span<const double> b);

} // namespace kelvarin
