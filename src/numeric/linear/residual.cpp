// SPDX-License-Identifier: MIT
#include "numeric/linear/residual.h"

#include <algorithm>
#include <cmath>

namespace kelvarin
{

namespace
{

/// A sum and what its roundings have lost so far.
class compensated_sum
{
public:
    void add(double term)
    {
        // The error of a sum of two, whichever is larger.
        const double sum = sum_ + term;
        const double part = sum - sum_;
        lost_ += (sum_ - (sum - part)) + (term - part);
        sum_ = sum;
    }
    void add_product(double a, double b)
    {
        const double product = a * b;
        lost_ += std::fma(a, b, -product);
        add(product);
    }
    double value() const { return sum_ + lost_; }

private:
    double sum_ = 0.0;
    double lost_ = 0.0;
};

/// The power of two that brings the largest of the values between 1/2 and 1.
int exponent_of_largest(std::span<const double> values)
{
    double largest = 0.0;
    for (const double value : values)
        largest = std::max(largest, std::fabs(value));
    int exponent = 0;
    std::frexp(largest, &exponent);
    return exponent;
}

double row_residual(std::span<const double> row, std::span<const double> x, int x_exponent, double right_side)
{
    const int row_exponent = exponent_of_largest(row);
    const double beta = std::ldexp(right_side, -row_exponent - x_exponent);
    compensated_sum difference;
    difference.add(-beta);
    double largest = std::fabs(beta);
    for (std::size_t k = 0; k < row.size(); ++k) {
        const double element = std::ldexp(row[k], -row_exponent);
        const double unknown = std::ldexp(x[k], -x_exponent);
        difference.add_product(element, unknown);
        largest = std::max(largest, std::fabs(element * unknown));
    }
    return largest == 0.0 ? 0.0 : std::fabs(difference.value()) / largest;
}

} // namespace

double relative_residual(const matrix& a, std::span<const double> x, std::span<const double> b)
{
    const int x_exponent = exponent_of_largest(x);
    double residual = 0.0;
    for (int row = 0; row < a.rows(); ++row)
        residual = std::max(residual, row_residual(a.row(row), x, x_exponent, b[static_cast<std::size_t>(row)]));
    return residual;
}

} // namespace kelvarin
