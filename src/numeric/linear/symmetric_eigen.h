// SPDX-License-Identifier: MIT
#pragma once

#include "numeric/linear/matrix.h"

#include <vector>

namespace kelvarin
{

/// The eigenvalues of a symmetric matrix and, as the columns of `vectors`, its orthonormal eigenvectors, in no
/// particular order.
struct eigen_pairs
{
    std::vector<double> values;
    matrix vectors;
};

/// By cyclic Jacobi rotations, which find small eigenvalues as precisely as the matrix holds them; meant for some
/// dozens of rows. Throws runtime_failure 6 where an element is not finite. [GolubVanLoan1996] sec. 8.4
eigen_pairs symmetric_eigen(const matrix& a);
/// The same into pairs that were used before; `a` is overwritten.
void symmetric_eigen(matrix& a, eigen_pairs& found);

} // namespace kelvarin
