// SPDX-License-Identifier: MIT
#include "numeric/linear/symmetric_eigen.h"

#include "numeric/arithmetic_check.h"

#include <algorithm>
#include <cassert>
#include <cmath>
#include <cstddef>
#include <limits>
#include <utility>

namespace kelvarin
{

namespace
{

/// A rotation in the plane of two axes.
struct rotation
{
    double c = 1.0;
    double s = 0.0;
};

/// The smaller of the two rotations that make the element (p, q) of a symmetric matrix 0; (8.4.1) of the publication.
rotation annihilating_rotation(const matrix& a, int p, int q)
{
    const double tau = (a(q, q) - a(p, p)) / (2.0 * a(p, q));
    // Where the square overflows the angle is none at all.
    const double t = std::copysign(1.0, tau) / (std::fabs(tau) + std::sqrt(1.0 + tau * tau));
    const double c = 1.0 / std::sqrt(1.0 + t * t);
    return {c, t * c};
}

void rotate_rows(matrix& a, int p, int q, rotation turn)
{
    double* const row_p = a.row(p).data();
    double* const row_q = a.row(q).data();
    for (int j = 0; j < a.columns(); ++j) {
        const double at_p = row_p[j];
        const double at_q = row_q[j];
        row_p[j] = turn.c * at_p - turn.s * at_q;
        row_q[j] = turn.s * at_p + turn.c * at_q;
    }
}

/// Turns rows and columns of a symmetric matrix by the rotation that makes its element (p, q) 0.
void annihilate(matrix& a, int p, int q, rotation turn)
{
    rotate_rows(a, p, q, turn);
    // The columns differ from the rows in the two places of either alone.
    const double pp = turn.c * a(p, p) - turn.s * a(p, q);
    const double qq = turn.s * a(q, p) + turn.c * a(q, q);
    for (int i = 0; i < a.rows(); ++i) {
        a(i, p) = a(p, i);
        a(i, q) = a(q, i);
    }
    a(p, p) = pp;
    a(q, q) = qq;
    a(p, q) = a(q, p) = 0.0;
}

/// Whether an element is too small to show beside the diagonal elements of its row and its column.
bool is_negligible(const matrix& a, int p, int q)
{
    constexpr double precision = std::numeric_limits<double>::epsilon();
    const double size = std::sqrt(std::fabs(a(p, p))) * std::sqrt(std::fabs(a(q, q)));
    return std::fabs(a(p, q)) <= precision * precision * size || a(p, q) == 0.0;
}

} // namespace

eigen_pairs symmetric_eigen(const matrix& a)
{
    matrix turned = a;
    eigen_pairs found;
    symmetric_eigen(turned, found);
    return found;
}

void symmetric_eigen(matrix& a, eigen_pairs& found)
{
    assert(a.rows() == a.columns());
    require_finite(a.values());
    // Convergence is quadratic: a handful of sweeps do, whatever the matrix.
    constexpr int most_sweeps = 60;
    const int n = a.rows();
    if (found.vectors.rows() != n) found = {std::vector<double>(static_cast<std::size_t>(n)), matrix(n, n)};
    std::ranges::fill(found.vectors.values(), 0.0);
    for (int i = 0; i < n; ++i)
        found.vectors(i, i) = 1.0;
    bool any = true;
    for (int sweep = 0; any && sweep < most_sweeps; ++sweep) {
        any = false;
        for (int p = 0; p < n; ++p) {
            for (int q = p + 1; q < n; ++q) {
                if (is_negligible(a, p, q)) continue;
                any = true;
                const rotation turn = annihilating_rotation(a, p, q);
                annihilate(a, p, q, turn);
                rotate_rows(found.vectors, p, q, turn);
            }
        }
    }
    // So far the vectors are rows.
    for (int i = 0; i < n; ++i) {
        found.values[static_cast<std::size_t>(i)] = a(i, i);
        for (int j = 0; j < i; ++j)
            std::swap(found.vectors(i, j), found.vectors(j, i));
    }
}

} // namespace kelvarin
