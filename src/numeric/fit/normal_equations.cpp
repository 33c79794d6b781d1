// SPDX-License-Identifier: MIT
#include "numeric/fit/normal_equations.h"

#include "numeric/arithmetic_check.h"
#include "numeric/linear/matrix_products.h"

#include <cassert>
#include <cmath>
#include <cstddef>

namespace kelvarin
{

namespace
{

std::vector<double> times_vector(const matrix& a, std::span<const double> x)
{
    std::vector<double> product(static_cast<std::size_t>(a.rows()), 0.0);
    for (int i = 0; i < a.rows(); ++i) {
        const std::span<const double> row = a.row(i);
        double sum = 0.0;
        for (std::size_t j = 0; j < row.size(); ++j)
            sum += row[j] * x[j];
        product[static_cast<std::size_t>(i)] = sum;
    }
    require_finite(product);
    return product;
}

} // namespace

matrix polynomial_design(std::span<const double> x, int degree, bool constant_term)
{
    const int first_power = constant_term ? 0 : 1;
    matrix design(static_cast<int>(x.size()), degree + 1 - first_power);
    for (int i = 0; i < design.rows(); ++i)
        for (int j = 0; j < design.columns(); ++j)
            design(i, j) = finite(std::pow(x[static_cast<std::size_t>(i)], j + first_power));
    return design;
}

matrix columns_design(std::span<const std::span<const double>> columns, bool constant_term)
{
    assert(!columns.empty());
    const int first = constant_term ? 1 : 0;
    matrix design(static_cast<int>(columns.front().size()), static_cast<int>(columns.size()) + first, 1.0);
    for (int i = 0; i < design.rows(); ++i)
        for (int j = first; j < design.columns(); ++j)
            design(i, j) = columns[static_cast<std::size_t>(j - first)][static_cast<std::size_t>(i)];
    return design;
}

linear_fit solve_normal_equations(const matrix& design, std::span<const double> y)
{
    assert(design.rows() == static_cast<int>(y.size()));
    const matrix transposed = matrix_transpose(design);
    const matrix normal = matrix_multiply(transposed, design);
    require_finite(normal.values());
    const matrix inverse = matrix_inverse(normal);

    linear_fit fit;
    fit.coef = times_vector(inverse, times_vector(transposed, y));
    fit.calculated = times_vector(design, fit.coef);
    for (int j = 0; j < design.columns(); ++j)
        fit.inverse_diagonal.push_back(inverse(j, j));
    return fit;
}

void add_statistics(linear_fit& fit, std::span<const double> y)
{
    const int p = static_cast<int>(fit.coef.size());
    fit.statistics = statistics_of_fit(y, fit.calculated, p);
    fit.conf.clear();
    for (const double diagonal : fit.inverse_diagonal)
        fit.conf.push_back(half_width(fit.statistics.Variance, diagonal, static_cast<int>(y.size()) - p));
}

linear_fit fit_linear(const matrix& design, std::span<const double> y)
{
    linear_fit fit = solve_normal_equations(design, y);
    add_statistics(fit, y);
    return fit;
}

} // namespace kelvarin
