// SPDX-License-Identifier: MIT
#include "numeric/linear/least_squares.h"

#include "numeric/arithmetic_check.h"

#include <algorithm>
#include <cassert>
#include <cmath>
#include <numeric>
#include <vector>

namespace kelvarin
{

namespace
{

std::size_t index(int i)
{
    return static_cast<std::size_t>(i);
}

/// Brings the largest element of a to 1, so that no sum of squares overflows; the solution stays.
void scale_to_one(matrix& a, std::span<double> b)
{
    double scale = 0.0;
    for (const double element : a.values())
        scale = std::max(scale, std::fabs(element));
    if (scale == 0.0) return;
    for (double& element : a.values())
        element /= scale;
    for (double& element : b)
        element /= scale;
}

class pivoted_qr
{
public:
    pivoted_qr(matrix& a, std::span<double> b) : a_(a), b_(b), order_(b.size()), sums_(b.size())
    {
        std::iota(order_.begin(), order_.end(), 0);
    }

    /// Reduces a to a triangle of as many rows as its rank, and b with it. Returns the rank.
    int factorise(double rank_tolerance)
    {
        double first = 0.0;
        for (int k = 0; k < a_.rows(); ++k) {
            const double length = bring_longest_column(k);
            if (k == 0) first = length;
            if (length <= rank_tolerance * first) return k;
            reflect(k, length);
        }
        return a_.rows();
    }

    /// Back substitution over the first `rank` pivots.
    void solve(int rank, std::span<double> x) const
    {
        std::ranges::fill(x, 0.0);
        for (int i = rank - 1; i >= 0; --i) {
            double sum = b_[index(i)];
            for (int j = i + 1; j < rank; ++j)
                sum -= a_(i, j) * x[index(order_[index(j)])];
            x[index(order_[index(i)])] = quotient(sum, a_(i, i));
        }
    }

private:
    /// Interchanges column k with the one that is longest from row k down, the first of equals; returns its
    /// length. Lengths are summed anew at each step: as costly as the reflection, and never cancelled.
    double bring_longest_column(int k)
    {
        const int n = a_.rows();
        std::fill(sums_.begin() + k, sums_.end(), 0.0);
        for (int i = k; i < n; ++i)
            for (int j = k; j < n; ++j)
                sums_[index(j)] += a_(i, j) * a_(i, j);
        const int longest = static_cast<int>(std::max_element(sums_.begin() + k, sums_.end()) - sums_.begin());
        if (longest != k) {
            std::swap(order_[index(k)], order_[index(longest)]);
            for (int i = 0; i < n; ++i)
                std::swap(a_(i, k), a_(i, longest));
        }
        return std::sqrt(sums_[index(longest)]);
    }

    /// Reflects the columns behind k, and b, so that column k becomes (-sigma, 0, ...) from row k down.
    void reflect(int k, double length)
    {
        const int n = a_.rows();
        const double sigma = std::copysign(length, a_(k, k));
        a_(k, k) += sigma;
        const double c = sigma * a_(k, k);
        std::fill(sums_.begin() + k, sums_.end(), 0.0);
        double sum_b = 0.0;
        for (int i = k; i < n; ++i) {
            for (int j = k + 1; j < n; ++j)
                sums_[index(j)] += a_(i, k) * a_(i, j);
            sum_b += a_(i, k) * b_[index(i)];
        }
        for (int i = k; i < n; ++i) {
            for (int j = k + 1; j < n; ++j)
                a_(i, j) -= sums_[index(j)] / c * a_(i, k);
            b_[index(i)] -= sum_b / c * a_(i, k);
        }
        a_(k, k) = -sigma;
    }

    matrix& a_;
    std::span<double> b_;
    /// By position: the unknown whose column stands there.
    std::vector<int> order_;
    std::vector<double> sums_;
};

} // namespace

void solve_least_squares(matrix& a, std::span<double> b, double rank_tolerance, std::span<double> x)
{
    assert(a.rows() == a.columns() && static_cast<int>(b.size()) == a.rows() && x.size() == b.size());
    scale_to_one(a, b);
    pivoted_qr qr(a, b);
    const int rank = qr.factorise(rank_tolerance);
    qr.solve(rank, x);
    require_finite(x);
}

} // namespace kelvarin
