// SPDX-License-Identifier: MIT
#pragma once

#include "numeric/linear/matrix.h"

#include <span>

namespace kelvarin
{

/// The sum of the squares of the residuals y - calculated. Throws runtime_failure if it is not finite.
double sum_of_squares(std::span<const double> y, std::span<const double> calculated);

/// Half the curvature matrix (alpha, k by k) and half the downhill gradient (beta, k) of the sum of squares in the k
/// parameters of a model, without its second derivatives. `gradient` holds the derivative of the n calculated values by
/// each parameter as a row. Throws runtime_failure if a value is not finite. [Press1992] eq. 15.5.8, 15.5.11
void curvature_matrix(const matrix& gradient, std::span<const double> y, std::span<const double> calculated,
                      matrix& alpha, std::span<double> beta);

} // namespace kelvarin
