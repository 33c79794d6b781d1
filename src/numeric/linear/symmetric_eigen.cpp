// SPDX-License-Identifier: MIT
#include "numeric/linear/symmetric_eigen.h"

#include "numeric/arithmetic_check.h"

#include <cassert>
#include <cmath>
#include <limits>

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
    const double t = std::copysign(1.0, tau) / (std::fabs(tau) + std::hypot(1.0, tau));
    const double c = 1.0 / std::sqrt(1.0 + t * t);
    return {c, t * c};
}

void rotate_columns(matrix& a, int p, int q, rotation turn)
{
    for (int i = 0; i < a.rows(); ++i) {
        const double at_p = a(i, p);
        const double at_q = a(i, q);
        a(i, p) = turn.c * at_p - turn.s * at_q;
        a(i, q) = turn.s * at_p + turn.c * at_q;
    }
}

void rotate_rows(matrix& a, int p, int q, rotation turn)
{
    for (int j = 0; j < a.columns(); ++j) {
        const double at_p = a(p, j);
        const double at_q = a(q, j);
        a(p, j) = turn.c * at_p - turn.s * at_q;
        a(q, j) = turn.s * at_p + turn.c * at_q;
    }
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
    assert(a.rows() == a.columns());
    require_finite(a.values());
    // Convergence is quadratic: a handful of sweeps do, whatever the matrix.
    constexpr int most_sweeps = 60;
    const int n = a.rows();
    matrix turned = a;
    eigen_pairs found{{}, matrix(n, n)};
    for (int i = 0; i < n; ++i)
        found.vectors(i, i) = 1.0;
    bool any = true;
    for (int sweep = 0; any && sweep < most_sweeps; ++sweep) {
        any = false;
        for (int p = 0; p < n; ++p) {
            for (int q = p + 1; q < n; ++q) {
                if (is_negligible(turned, p, q)) continue;
                any = true;
                const rotation turn = annihilating_rotation(turned, p, q);
                rotate_columns(turned, p, q, turn);
                rotate_rows(turned, p, q, turn);
                turned(p, q) = turned(q, p) = 0.0;
                rotate_columns(found.vectors, p, q, turn);
            }
        }
    }
    for (int i = 0; i < n; ++i)
        found.values.push_back(turned(i, i));
    return found;
}

} // namespace kelvarin
