// SPDX-License-Identifier: MIT
#include "numeric/fit/curvature_matrix.h"

#include "numeric/arithmetic_check.h"

#include <algorithm>
#include <cstddef>

namespace kelvarin
{

namespace
{

/// Sums that grow side by side, each in the order of the rows: one alone would wait for each addition.
constexpr int chains = 4;

/// The products of row k of the gradient and of the rows from `first` on; the last one stands for those behind it.
void add_products(const matrix& gradient, int k, int first, double (&sums)[chains])
{
    const double* const of_k = gradient.row(k).data();
    const double* others[chains];
    for (int chain = 0; chain < chains; ++chain)
        others[chain] = gradient.row(std::min(first + chain, gradient.rows() - 1)).data();
    std::ranges::fill(sums, 0.0);
    for (std::size_t i = 0; i < static_cast<std::size_t>(gradient.columns()); ++i)
        for (int chain = 0; chain < chains; ++chain)
            sums[chain] += of_k[i] * others[chain][i];
}

} // namespace

double sum_of_squares(std::span<const double> y, std::span<const double> calculated)
{
    double sum = 0.0;
    for (std::size_t i = 0; i < y.size(); ++i)
        sum += (y[i] - calculated[i]) * (y[i] - calculated[i]);
    return finite(sum);
}

void curvature_matrix(const matrix& gradient, std::span<const double> y, std::span<const double> calculated,
                      matrix& alpha, std::span<double> beta)
{
    for (int k = 0; k < alpha.rows(); ++k) {
        const std::span<const double> of_k = gradient.row(k);
        double projection = 0.0;
        for (std::size_t i = 0; i < y.size(); ++i)
            projection += (y[i] - calculated[i]) * of_k[i];
        beta[static_cast<std::size_t>(k)] = projection;
        for (int first = 0; first <= k; first += chains) {
            double sums[chains];
            add_products(gradient, k, first, sums);
            for (int l = first; l < std::min(first + chains, k + 1); ++l)
                alpha(k, l) = alpha(l, k) = sums[l - first];
        }
    }
    require_finite(alpha.values());
    require_finite(beta);
}

} // namespace kelvarin
