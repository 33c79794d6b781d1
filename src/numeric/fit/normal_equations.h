// SPDX-License-Identifier: MIT
#pragma once

#include "numeric/fit/fit_statistics.h"
#include "numeric/linear/matrix.h"

#include <span>
#include <vector>

namespace kelvarin
{

/// A fit that is linear in its parameters.
struct linear_fit
{
    std::vector<double> coef;
    /// The model at each observation.
    std::vector<double> calculated;
    /// The diagonal of the inverse of the normal matrix.
    std::vector<double> inverse_diagonal;
    /// The 95 % half-widths of the coefficients.
    std::vector<double> conf;
    fit_statistics statistics;
};

/// The powers of x as columns: from x^0 to x^degree with a constant term, else from x^1 on; 0^0 is 1.
matrix polynomial_design(std::span<const double> x, int degree, bool constant_term);

/// A constant column, where asked for, and the given columns of equal length behind it.
matrix columns_design(std::span<const std::span<const double>> columns, bool constant_term);

/// The least-squares fit of y (n) by design (n x p) through the explicit inverse of the normal matrix: no scaling and
/// no orthogonal basis, so an ill-conditioned design loses digits, and all of them in the end. Throws runtime_failure
/// 8888 "Singular matrix when evaluating inverse matrix" at a pivot of exactly 0. Leaves statistics and half-widths to
/// add_statistics, which may fail where the fit itself stands. [Press1992] sec. 15.4
linear_fit solve_normal_equations(const matrix& design, std::span<const double> y);

/// Completes a fit to y. Throws what statistics_of_fit and half_width throw.
void add_statistics(linear_fit& fit, std::span<const double> y);

/// Both in one.
linear_fit fit_linear(const matrix& design, std::span<const double> y);

} // namespace kelvarin
