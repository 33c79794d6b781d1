// SPDX-License-Identifier: MIT
#include "numeric/fit/fit_diagnosis.h"

#include "numeric/fit/curvature_matrix.h"
#include "numeric/fit/distributions.h"
#include "numeric/fit/fit_comparison.h"
#include "numeric/linear/symmetric_eigen.h"
#include "numeric/linear/thin_qr.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <numbers>

namespace kelvarin
{

namespace
{

std::size_t at(int i)
{
    return static_cast<std::size_t>(i);
}

double sum_of_products(std::span<const double> a, std::span<const double> b)
{
    double sum = 0.0;
    for (std::size_t i = 0; i < a.size(); ++i)
        sum += a[i] * b[i];
    return sum;
}

/// The rows scaled to length 1; nullopt if one is 0.
std::optional<std::vector<double>> lengths_of(const matrix& gradient)
{
    std::vector<double> lengths;
    for (int j = 0; j < gradient.rows(); ++j) {
        const double length = std::sqrt(sum_of_products(gradient.row(j), gradient.row(j)));
        if (!(length > 0.0) || !std::isfinite(length)) return std::nullopt;
        lengths.push_back(length);
    }
    return lengths;
}

/// From the singular values of the triangle of scaled columns, of which the small ones are found as the reciprocals of
/// those of its inverse.
double condition_of(const matrix& r, const matrix& inverse)
{
    const auto greatest = [](const matrix& a) {
        matrix squares(a.rows(), a.rows());
        for (int i = 0; i < a.rows(); ++i)
            for (int j = 0; j < a.rows(); ++j)
                squares(i, j) = sum_of_products(a.row(i), a.row(j));
        const std::vector<double> values = symmetric_eigen(squares).values;
        return std::sqrt(std::max(0.0, *std::ranges::max_element(values)));
    };
    return greatest(r) * greatest(inverse);
}

void judge_parameters(const matrix& inverse, std::span<const double> lengths, fit_diagnosis& found)
{
    const int p = inverse.rows();
    found.correlation = matrix(p, p);
    for (int i = 0; i < p; ++i) {
        const double norm = std::sqrt(sum_of_products(inverse.row(i), inverse.row(i)));
        found.standard_errors.push_back(found.deviation * norm / lengths[at(i)]);
        for (int j = 0; j < p; ++j)
            found.correlation(i, j) = sum_of_products(inverse.row(i), inverse.row(j)) /
                                      (norm * std::sqrt(sum_of_products(inverse.row(j), inverse.row(j))));
    }
}

void judge_rows(const matrix& q, std::span<const double> residuals, fit_diagnosis& found)
{
    const int p = q.rows();
    for (std::size_t i = 0; i < residuals.size(); ++i) {
        double h = 0.0;
        for (int j = 0; j < p; ++j)
            h += q.row(j)[i] * q.row(j)[i];
        found.leverage.push_back(h);
        const double rest = 1.0 - h;
        const double scaled = found.deviation > 0.0 ? residuals[i] / found.deviation : 0.0;
        found.pull.push_back(rest > 0.0 ? scaled * scaled * h / (p * rest * rest) : 0.0);
    }
}

void judge_signs(std::span<const double> residuals, fit_diagnosis& found)
{
    double above = 0.0;
    double below = 0.0;
    int last = 0;
    for (const double residual : residuals) {
        const int sign = residual > 0.0 ? 1 : residual < 0.0 ? -1 : 0;
        if (sign == 0) continue;
        (sign > 0 ? above : below) += 1.0;
        if (sign != last) ++found.runs;
        last = sign;
    }
    const double n = above + below;
    if (above == 0.0 || below == 0.0 || n < 3.0) return;
    const double expected = 2.0 * above * below / n + 1.0;
    const double variance = (expected - 1.0) * (expected - 2.0) / (n - 1.0);
    if (variance > 0.0) found.runs_probability = two_sided_normal((found.runs - expected) / std::sqrt(variance));
}

void judge_normality(std::span<const double> residuals, fit_diagnosis& found)
{
    const auto n = static_cast<double>(residuals.size());
    double mean = 0.0;
    for (const double residual : residuals)
        mean += residual / n;
    double m2 = 0.0;
    double m3 = 0.0;
    double m4 = 0.0;
    for (const double residual : residuals) {
        const double d = residual - mean;
        m2 += d * d / n;
        m3 += d * d * d / n;
        m4 += d * d * d * d / n;
    }
    if (!(m2 > 0.0)) return;
    const double skewness = m3 / std::pow(m2, 1.5);
    const double kurtosis = m4 / (m2 * m2) - 3.0;
    found.normality_probability = std::exp(-n / 12.0 * (skewness * skewness + kurtosis * kurtosis / 4.0));
}

void judge_model(std::span<const double> y, int p, fit_diagnosis& found)
{
    const auto n = static_cast<double>(y.size());
    double mean = 0.0;
    for (const double value : y)
        mean += value / n;
    double SST = 0.0;
    for (const double value : y)
        SST += (value - mean) * (value - mean);
    const int df = found.degrees_of_freedom;
    if (p > 1 && found.SSE > 0.0 && SST > found.SSE) {
        found.F = (SST - found.SSE) / (p - 1) / (found.SSE / df);
        found.F_probability = upper_F(*found.F, p - 1, df);
    }
    found.AICc = corrected_information({found.SSE, p}, static_cast<int>(y.size()));
    // The variance of the residuals counts as a parameter.
    found.BIC = n * std::log(2.0 * std::numbers::pi * found.SSE / n) + n + (p + 1.0) * std::log(n);
}

} // namespace

std::optional<fit_diagnosis> diagnose_fit(const matrix& gradient, std::span<const double> y,
                                          std::span<const double> calculated)
{
    const int p = gradient.rows();
    fit_diagnosis found;
    found.degrees_of_freedom = static_cast<int>(y.size()) - p;
    const auto lengths = lengths_of(gradient);
    if (!lengths || found.degrees_of_freedom <= 0) return std::nullopt;
    matrix scaled = gradient;
    for (int j = 0; j < p; ++j)
        for (double& element : scaled.row(j))
            element /= (*lengths)[at(j)];
    const thin_qr factors = factor_columns(scaled);
    for (int j = 0; j < p; ++j)
        if (factors.r(j, j) == 0.0) return std::nullopt;
    const matrix inverse = inverse_of_triangle(factors.r);

    std::vector<double> residuals(y.size());
    for (std::size_t i = 0; i < residuals.size(); ++i)
        residuals[i] = y[i] - calculated[i];
    found.SSE = sum_of_squares(y, calculated);
    found.deviation = std::sqrt(found.SSE / found.degrees_of_freedom);
    found.condition = condition_of(factors.r, inverse);
    judge_parameters(inverse, *lengths, found);
    judge_rows(factors.q, residuals, found);
    judge_signs(residuals, found);
    judge_normality(residuals, found);
    judge_model(y, p, found);
    return found;
}

} // namespace kelvarin
