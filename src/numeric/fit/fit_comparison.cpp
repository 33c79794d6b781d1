// SPDX-License-Identifier: MIT
#include "numeric/fit/fit_comparison.h"

#include "numeric/fit/distributions.h"
#include "numeric/linear/thin_qr.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <limits>
#include <numbers>
#include <span>
#include <vector>

namespace kelvarin
{

namespace
{

double sum_of_products(std::span<const double> a, std::span<const double> b)
{
    double sum = 0.0;
    for (std::size_t i = 0; i < a.size(); ++i)
        sum += a[i] * b[i];
    return sum;
}

void scale_to_one(matrix& rows)
{
    for (int j = 0; j < rows.rows(); ++j) {
        const double length = std::sqrt(sum_of_products(rows.row(j), rows.row(j)));
        for (double& element : rows.row(j))
            element /= length > 0.0 ? length : 1.0;
    }
}

} // namespace

double corrected_information(const fit_size& fit, int n)
{
    const double count = n;
    const double k = fit.p + 1.0;
    if (count - k - 1.0 <= 0.0) return std::numeric_limits<double>::infinity();
    const double likelihood = count * std::log(2.0 * std::numbers::pi * fit.SSE / count) + count;
    return likelihood + 2.0 * k * count / (count - k - 1.0);
}

std::optional<nested_test> test_additional_parameters(const fit_size& small, const fit_size& large, int n)
{
    const int additional = large.p - small.p;
    const int df = n - large.p;
    if (additional <= 0 || df <= 0) return std::nullopt;
    nested_test test;
    // Rounding may leave more to the larger model.
    test.F = std::max(0.0, (small.SSE - large.SSE) / additional / (large.SSE / df));
    if (!std::isfinite(test.F)) return std::nullopt;
    test.probability = upper_F(test.F, additional, df);
    return test;
}

bool are_spanned(const matrix& some, const matrix& all)
{
    constexpr double precision = 1e-10;
    matrix basis = all;
    matrix tried = some;
    scale_to_one(basis);
    scale_to_one(tried);
    const thin_qr factors = factor_columns(basis);
    for (int j = 0; j < tried.rows(); ++j) {
        std::vector<double> rest(tried.row(j).begin(), tried.row(j).end());
        for (int k = 0; k < factors.q.rows(); ++k) {
            const std::span<const double> direction = factors.q.row(k);
            const double part = sum_of_products(direction, rest);
            for (std::size_t i = 0; i < rest.size(); ++i)
                rest[i] -= part * direction[i];
        }
        if (sum_of_products(rest, rest) > precision * precision) return false;
    }
    return true;
}

} // namespace kelvarin
