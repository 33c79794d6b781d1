// SPDX-License-Identifier: MIT
#pragma once

#include "numeric/linear/gauss_jordan.h"

#include <array>
#include <cstdint>
#include <span>

namespace kelvarin
{

/// The elimination of gauss_jordan_solve for systems so small that tables about their elements cost more
/// than the arithmetic: same pivots, same bits. [Press1992] sec. 2.1
///
/// The right side stands behind the columns of the matrix, which stay where they are. The column of a
/// pivot becomes exactly zero in all other rows, as m - 1 m, so that it is never looked for again, and the
/// 1 in the pivot's own row, which is used then, is never read again. Rows are interchanged by their
/// contents.
class small_elimination
{
public:
    static constexpr int most_unknowns = 23;

    /// `b` becomes the solution; when singular it is left as gauss_jordan_inverse leaves it, but for the
    /// signs of zeros. Throws runtime_failure 6 where a pivot is not finite.
    elimination_status solve(const matrix& a, std::span<double> b);

private:
    /// In whole groups of elements that are worked on side by side.
    static constexpr int most_columns = most_unknowns + 1;

    alignas(32) std::array<double, std::size_t{most_unknowns} * most_columns> elements_;
    /// By column: what of its elements' bits is their magnitude; nothing of the right side's.
    alignas(32) std::array<std::uint64_t, most_columns> magnitudes_;
    /// By row: the largest magnitude, as bits, which compare as the numbers do; negative where the row is
    /// used.
    std::array<std::int64_t, most_unknowns> largest_;
};

} // namespace kelvarin
