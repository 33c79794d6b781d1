// SPDX-License-Identifier: MIT
#include "numeric/linear/matrix_algebra.h"

#include "numeric/arithmetic_check.h"
#include "numeric/linear/lu.h"

#include <algorithm>
#include <cassert>
#include <cmath>
#include <cstddef>
#include <functional>
#include <vector>

namespace kelvarin
{

namespace
{

constexpr double zero_pivot_share = 0.0001;
constexpr double smallest_regular_pivot = 1e-12;

double largest_magnitude(std::span<const double> values)
{
    double largest = 0.0;
    for (const double value : values)
        largest = std::max(largest, std::fabs(value));
    return largest;
}

template <class Operation> matrix element_by_element(const matrix& a, const matrix& b, Operation operation)
{
    assert(a.rows() == b.rows() && a.columns() == b.columns());
    matrix result(a.rows(), a.columns());
    std::ranges::transform(a.values(), b.values(), result.values().begin(), operation);
    require_finite(result.values());
    return result;
}

int row_of_largest(const matrix& a, int first_row, int column)
{
    int found = first_row;
    for (int row = first_row + 1; row < a.rows(); ++row)
        if (std::fabs(a(row, column)) > std::fabs(a(found, column))) found = row;
    return found;
}

/// Subtracts multiples of the pivot's row from the rows below it.
void eliminate_below(matrix& a, int pivot, int column)
{
    const std::span<const double> pivot_row = a.row(pivot);
    for (int row = pivot + 1; row < a.rows(); ++row) {
        const double multiplier = a(row, column) / a(pivot, column);
        const std::span<double> reduced = a.row(row);
        for (std::size_t k = static_cast<std::size_t>(column); k < reduced.size(); ++k)
            reduced[k] = finite(reduced[k] - multiplier * pivot_row[k]);
    }
}

/// The factors of a matrix that is not singular.
std::optional<lu_factors> regular_factors(const matrix& a)
{
    assert(a.rows() == a.columns() && a.rows() > 0);
    // ludcmp throws at a row of zeros, and replaces a pivot of 0.
    for (int row = 0; row < a.rows(); ++row)
        if (largest_magnitude(a.row(row)) == 0.0) return std::nullopt;
    lu_factors lu(a.rows());
    lu.a = a;
    ludcmp(lu);
    for (int step = 0; step < a.rows(); ++step)
        if (!(std::fabs(lu.a(step, step)) >= smallest_regular_pivot)) return std::nullopt;
    return lu;
}

} // namespace

matrix matrix_add(const matrix& a, const matrix& b)
{
    return element_by_element(a, b, std::plus<>());
}

matrix matrix_subtract(const matrix& a, const matrix& b)
{
    return element_by_element(a, b, std::minus<>());
}

matrix matrix_product(const matrix& a, const matrix& b)
{
    matrix product = matrix_multiply(a, b);
    require_finite(product.values());
    return product;
}

double matrix_trace(const matrix& a)
{
    assert(a.rows() == a.columns());
    double trace = 0.0;
    for (int i = 0; i < a.rows(); ++i)
        trace += a(i, i);
    return finite(trace);
}

int matrix_rank(const matrix& a)
{
    const double largest = largest_magnitude(a.values());
    if (largest == 0.0) return 0;
    const double threshold = zero_pivot_share * largest;
    matrix reduced = a;
    int rank = 0;
    for (int column = 0; column < a.columns() && rank < a.rows(); ++column) {
        const int pivot = row_of_largest(reduced, rank, column);
        if (std::fabs(reduced(pivot, column)) < threshold) continue;
        std::ranges::swap_ranges(reduced.row(rank), reduced.row(pivot));
        eliminate_below(reduced, rank, column);
        ++rank;
    }
    return rank;
}

std::optional<double> matrix_determinant(const matrix& a)
{
    const std::optional<lu_factors> lu = regular_factors(a);
    if (!lu) return std::nullopt;
    double determinant = lu->d;
    for (int step = 0; step < a.rows(); ++step)
        determinant *= lu->a(step, step);
    return finite(determinant);
}

std::optional<matrix> matrix_inverted(const matrix& a)
{
    const std::optional<lu_factors> lu = regular_factors(a);
    if (!lu) return std::nullopt;
    matrix inverse(a.rows(), a.columns());
    std::vector<double> column(static_cast<std::size_t>(a.rows()));
    for (int j = 0; j < a.columns(); ++j) {
        std::ranges::fill(column, 0.0);
        column[static_cast<std::size_t>(j)] = 1.0;
        lubksb(*lu, column);
        for (int i = 0; i < a.rows(); ++i)
            inverse(i, j) = column[static_cast<std::size_t>(i)];
    }
    return inverse;
}

} // namespace kelvarin
