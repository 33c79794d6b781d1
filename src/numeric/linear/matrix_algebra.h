// SPDX-License-Identifier: MIT
#pragma once

#include "numeric/linear/matrix.h"
#include "numeric/linear/matrix_products.h"

#include <optional>

/// What the matrix menu of a table calculates, on matrices of at least one row and one column. Each function throws
/// runtime_failure 6 where a result is not finite.
namespace kelvarin
{

/// A + B and A - B for matrices of equal sizes.
matrix matrix_add(const matrix& a, const matrix& b);
matrix matrix_subtract(const matrix& a, const matrix& b);

/// A B for an A with as many columns as B has rows.
matrix matrix_product(const matrix& a, const matrix& b);

inline matrix matrix_transposed(const matrix& a)
{
    return matrix_transpose(a);
}

/// The sum of the diagonal of a square matrix.
double matrix_trace(const matrix& a);

/// The number of pivots that Gaussian elimination with row pivoting finds, column by column. A pivot below 0.0001 of
/// the largest element of A counts as zero, so the rank of an invertible matrix may fall short of its size.
/// [GolubVanLoan1996] sec. 3.4
int matrix_rank(const matrix& a);

/// The determinant and the inverse of a square matrix by ludcmp. Returns nullopt for a singular matrix: one with a row
/// of zeros, or with a pivot below 1e-12, whatever the size of its elements.
std::optional<double> matrix_determinant(const matrix& a);
std::optional<matrix> matrix_inverted(const matrix& a);

} // namespace kelvarin
