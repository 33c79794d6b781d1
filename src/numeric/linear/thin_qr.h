// SPDX-License-Identifier: MIT
#pragma once

#include "numeric/linear/matrix.h"

#include <span>
#include <vector>

namespace kelvarin
{

/// The factors of a tall matrix whose p columns of n elements are given as the rows of a p x n matrix: the columns of Q
/// as the rows of `q` (p x n), and R (p x p, upper triangular). A column that depends on those before it has a 0 on the
/// diagonal of R and a zero column of Q.
struct thin_qr
{
    matrix q;
    matrix r;
};

/// By the modified Gram-Schmidt process, each column twice, so that Q is orthogonal to working precision.
/// [GolubVanLoan1996] sec. 5.2
thin_qr factor_columns(const matrix& columns);

/// The coefficients of the columns whose sum comes nearest to b (n). Columns that depend on others get 0.
std::vector<double> least_squares_solution(const thin_qr& factors, std::span<const double> b);

/// The inverse of R (p x p), whose rows' sums of squares are the diagonal of the inverse of A^T A. Throws
/// runtime_failure 11 where R is singular.
matrix inverse_of_triangle(const matrix& r);

} // namespace kelvarin
