// SPDX-License-Identifier: MIT
#pragma once

#include "numeric/linear/matrix.h"

/// Products, transposes and inverses in plain double arithmetic, as the normal equations of fits use them.
namespace kelvarin
{

/// A B, each element a sum in the order of the inner index. Throws runtime_failure 8888 "impossible to multiple arrays
/// - inconsistent dimentions !" where the sizes do not fit.
matrix matrix_multiply(const matrix& a, const matrix& b);

matrix matrix_transpose(const matrix& a);

/// The inverse of a square matrix by Gauss-Jordan elimination with full pivoting. Throws runtime_failure 8888
/// "Singular matrix when evaluating inverse matrix" at a pivot of exactly 0; there is no tolerance.
matrix matrix_inverse(const matrix& a);

} // namespace kelvarin
