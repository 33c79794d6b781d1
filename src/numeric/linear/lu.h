// SPDX-License-Identifier: MIT
#pragma once

#include "numeric/linear/matrix.h"

#include <span>
#include <vector>

namespace kelvarin
{

/// A square matrix that ludcmp decomposes in place, with the memory for it: kept by callers who decompose
/// one matrix after the other.
struct lu_factors
{
    explicit lu_factors(int size);

    /// The matrix; after ludcmp U on and above the diagonal, below it L, whose diagonal is 1.
    matrix a;
    /// By step: the row that was interchanged with the step's own.
    std::vector<int> indx;
    /// By row: the first element of L and the one behind the last of U that may differ from zero.
    std::vector<int> first;
    std::vector<int> end;
    /// By row: the reciprocal of its largest element, by which candidates for a pivot are weighed.
    std::vector<double> weight;
    /// 1, or -1 after an odd number of interchanges.
    double d = 1.0;
};

/// LU decomposition with implicit row pivoting, Crout's order of operations on each element: the pivot of a
/// column is the largest element in units of its row's largest, the last of equals; one of exactly 0 becomes
/// 1e-20. Throws runtime_failure 8888 for a row of zeros, 6 where an element is not finite. [Press1992] sec. 2.3
void ludcmp(lu_factors& lu);

/// `b` becomes the solution of the system whose matrix ludcmp has decomposed. Throws runtime_failure 6 when it
/// is not finite. [Press1992] sec. 2.3
void lubksb(const lu_factors& lu, std::span<double> b);

} // namespace kelvarin
