// SPDX-License-Identifier: MIT
#pragma once

#include "numeric/linear/matrix.h"

#include <span>

/// QR factorisation and its update, as Broyden's method needs them. Every loop runs along rows. All throw
/// runtime_failure 6 or 11 where their arithmetic overflows or divides by zero.
namespace kelvarin
{

/// Factors the square `a` into Q R by Householder reflections I - u u^T / c. On return R stands above a's
/// diagonal and, its diagonal, in d; the vectors u stand in a's columns from the diagonal down, their c in
/// c, where 0 means that no reflection was needed or possible. Returns true when R is singular, that is an
/// element of d is exactly 0; the factorisation is complete all the same. [Press1992] sec. 2.10
bool qrdcmp(matrix& a, std::span<double> c, std::span<double> d);

/// Solves R x = b, b becoming x. R is a's part above the diagonal, with the diagonal d.
void rsolv(const matrix& a, std::span<const double> d, std::span<double> b);

/// Makes of Q R = A the factors of Q (R + u v^T); r is R, upper triangular, qt is Q transposed. u is used
/// up. Costs O(n^2). [Press1992] sec. 2.10
void qrupdt(matrix& r, matrix& qt, std::span<double> u, std::span<const double> v);

/// Rotates rows i and i + 1 of r, from column i on, and of qt by the angle that takes (a, -b) to (length, 0).
void rotate(matrix& r, matrix& qt, int i, double a, double b);

} // namespace kelvarin
