// SPDX-License-Identifier: MIT
#pragma once

#include "numeric/linear/matrix.h"

#include <rapidcheck.h>

#include <algorithm>
#include <bit>
#include <cmath>
#include <cstdint>
#include <initializer_list>
#include <span>
#include <vector>

/// Matrices for properties of the linear algebra: made at random, multiplied, compared.
namespace kelvarin::test
{

inline matrix matrix_of(int rows, const std::vector<double>& values)
{
    matrix made(rows, static_cast<int>(values.size()) / rows);
    std::ranges::copy(values, made.values().begin());
    return made;
}

inline matrix product(const matrix& a, const matrix& b)
{
    matrix made(a.rows(), b.columns());
    for (int i = 0; i < a.rows(); ++i)
        for (int j = 0; j < b.columns(); ++j)
            for (int k = 0; k < a.columns(); ++k)
                made(i, j) += a(i, k) * b(k, j);
    return made;
}

inline matrix transposed(const matrix& a)
{
    matrix made(a.columns(), a.rows());
    for (int i = 0; i < a.rows(); ++i)
        for (int j = 0; j < a.columns(); ++j)
            made(j, i) = a(i, j);
    return made;
}

inline matrix identity(int n)
{
    matrix made(n, n);
    for (int i = 0; i < n; ++i)
        made(i, i) = 1.0;
    return made;
}

inline double largest_difference(std::span<const double> a, std::span<const double> b)
{
    double largest = 0.0;
    for (std::size_t i = 0; i < a.size(); ++i)
        largest = std::isfinite(a[i]) ? std::max(largest, std::fabs(a[i] - b[i])) : INFINITY;
    return largest;
}

inline std::vector<std::uint64_t> bits(std::span<const double> values)
{
    std::vector<std::uint64_t> made;
    for (const double value : values)
        made.push_back(std::bit_cast<std::uint64_t>(value));
    return made;
}

/// Elements as systems have them: small whole numbers with many ties and zeros (often a singular matrix),
/// mostly zeros, or numbers of very different size.
inline rc::Gen<double> element(int kind)
{
    using rc::gen::inRange;
    if (kind == 0) return rc::gen::map(inRange(-2, 3), [](int value) { return static_cast<double>(value); });
    if (kind == 1)
        return rc::gen::map(inRange(-40, 41), [](int value) { return std::abs(value) < 8 ? value / 3.0 : 0.0; });
    return rc::gen::apply([](int mantissa, int exponent) { return std::ldexp(mantissa / 7.0, exponent); },
                          inRange(-1000, 1001), inRange(-30, 31));
}

inline matrix random_matrix(int n)
{
    const int kind = *rc::gen::inRange(0, 3);
    return matrix_of(n, *rc::gen::container<std::vector<double>>(static_cast<std::size_t>(n * n), element(kind)));
}

inline std::vector<double> random_vector(int n)
{
    return *rc::gen::container<std::vector<double>>(static_cast<std::size_t>(n), element(0));
}

/// Its diagonal outweighs the rest of each row, so that a solution keeps most of its digits.
inline matrix random_dominant_matrix(int n)
{
    matrix made = matrix_of(n, *rc::gen::container<std::vector<double>>(static_cast<std::size_t>(n * n), element(0)));
    for (int i = 0; i < n; ++i)
        made(i, i) = std::copysign(2.0 * n + 1.0, made(i, i));
    return made;
}

} // namespace kelvarin::test
