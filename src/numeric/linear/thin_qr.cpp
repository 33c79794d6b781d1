// SPDX-License-Identifier: MIT
#include "numeric/linear/thin_qr.h"

#include "numeric/arithmetic_check.h"

#include <cassert>
#include <cmath>
#include <limits>
#include <numeric>

namespace kelvarin
{

namespace
{

double product(std::span<const double> a, std::span<const double> b)
{
    return std::inner_product(a.begin(), a.end(), b.begin(), 0.0);
}

} // namespace

thin_qr factor_columns(const matrix& columns)
{
    const int p = columns.rows();
    thin_qr factors = {columns, matrix(p, p)};
    for (int j = 0; j < p; ++j) {
        const std::span<double> q = factors.q.row(j);
        const double before = std::sqrt(product(q, q));
        for (int pass = 0; pass < 2; ++pass)
            for (int k = 0; k < j; ++k) {
                const std::span<const double> of_k = factors.q.row(k);
                const double along = product(of_k, q);
                factors.r(k, j) += along;
                for (std::size_t i = 0; i < q.size(); ++i)
                    q[i] -= along * of_k[i];
            }
        const double length = finite(std::sqrt(product(q, q)));
        const bool depends = length <= 10.0 * std::numeric_limits<double>::epsilon() * before;
        factors.r(j, j) = depends ? 0.0 : length;
        for (double& element : q)
            element = depends ? 0.0 : element / length;
    }
    return factors;
}

std::vector<double> least_squares_solution(const thin_qr& factors, std::span<const double> b)
{
    const int p = factors.r.rows();
    std::vector<double> x(static_cast<std::size_t>(p), 0.0);
    for (int j = p - 1; j >= 0; --j) {
        if (factors.r(j, j) == 0.0) continue;
        double sum = product(factors.q.row(j), b);
        for (int k = j + 1; k < p; ++k)
            sum -= factors.r(j, k) * x[static_cast<std::size_t>(k)];
        x[static_cast<std::size_t>(j)] = finite(sum / factors.r(j, j));
    }
    return x;
}

matrix inverse_of_triangle(const matrix& r)
{
    const int p = r.rows();
    matrix inverse(p, p);
    for (int j = 0; j < p; ++j) {
        inverse(j, j) = quotient(1.0, r(j, j));
        for (int i = j - 1; i >= 0; --i) {
            double sum = 0.0;
            for (int k = i + 1; k <= j; ++k)
                sum -= r(i, k) * inverse(k, j);
            inverse(i, j) = quotient(sum, r(i, i));
        }
    }
    return inverse;
}

} // namespace kelvarin
