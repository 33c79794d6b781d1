// SPDX-License-Identifier: MIT
#include "numeric/condition.h"

#include "numeric/gauss_jordan.h"
#include "platform/runtime_failure.h"

#include <algorithm>
#include <cmath>
#include <vector>

namespace kelvarin
{

namespace
{

/// Multiplies by the power of two that brings `largest` between 1/2 and 1; exact unless it underflows.
double scaled(double value, double largest)
{
    int exponent = 0;
    std::frexp(largest, &exponent);
    return std::ldexp(value, -exponent);
}

void scale_rows(matrix& a)
{
    for (int row = 0; row < a.rows(); ++row) {
        double largest = 0.0;
        for (const double element : a.row(row))
            largest = std::max(largest, std::fabs(element));
        for (double& element : a.row(row))
            element = scaled(element, largest);
    }
}

void scale_columns(matrix& a)
{
    for (int column = 0; column < a.columns(); ++column) {
        double largest = 0.0;
        for (int row = 0; row < a.rows(); ++row)
            largest = std::max(largest, std::fabs(a(row, column)));
        for (int row = 0; row < a.rows(); ++row)
            a(row, column) = scaled(a(row, column), largest);
    }
}

double maximum_norm(const matrix& a)
{
    double norm = 0.0;
    for (int row = 0; row < a.rows(); ++row) {
        double sum = 0.0;
        for (const double element : a.row(row))
            sum += std::fabs(element);
        norm = std::max(norm, sum);
    }
    return norm;
}

} // namespace

double reciprocal_condition(matrix a)
{
    scale_rows(a);
    scale_columns(a);
    const double norm = maximum_norm(a);
    std::vector<double> no_right_side(static_cast<std::size_t>(a.rows()), 0.0);
    try {
        if (gauss_jordan_inverse(a, no_right_side) == elimination_status::singular) return 0.0;
    } catch (const runtime_failure&) {
        return 0.0;
    }
    return 1.0 / (norm * maximum_norm(a));
}

} // namespace kelvarin
