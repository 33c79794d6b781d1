// SPDX-License-Identifier: MIT
#include "reg/polynomial_bands.h"

#include "numeric/fit/normal_equations.h"
#include "numeric/fit/student_t.h"
#include "numeric/linear/matrix_products.h"
#include "numeric/linear/thin_qr.h"
#include "platform/runtime_failure.h"
#include "reg/fit_details.h"
#include "reg/polynomial_text.h"

#include <algorithm>
#include <cmath>
#include <cstddef>

namespace kelvarin
{

namespace
{

constexpr int point_count = 101;

std::vector<double> even_points(std::span<const double> x)
{
    const auto [least, greatest] = std::ranges::minmax_element(x);
    std::vector<double> points;
    for (int i = 0; i < point_count; ++i) {
        const double part = static_cast<double>(i) / (point_count - 1);
        points.push_back((1.0 - part) * *least + part * *greatest);
    }
    return points;
}

/// The variance of the polynomial at each x, as a part of that of an observation.
class curve_variance
{
public:
    curve_variance(const fit_outcome& outcome, const regression_fit& fit)
        : degree_(fit.degree), constant_term_(outcome.free_parameter)
    {
        matrix columns = columns_of(outcome, fit);
        for (int j = 0; j < columns.rows(); ++j) {
            double sum = 0.0;
            for (const double element : columns.row(j))
                sum += element * element;
            lengths_.push_back(std::sqrt(sum));
            for (double& element : columns.row(j))
                element /= lengths_.back();
        }
        inverse_ = inverse_of_triangle(factor_columns(columns).r);
    }

    double at(double x) const
    {
        const matrix powers = polynomial_design({&x, 1}, degree_, constant_term_);
        double sum = 0.0;
        for (int j = 0; j < inverse_.columns(); ++j) {
            double projection = 0.0;
            for (int i = 0; i <= j; ++i)
                projection += powers(0, i) / lengths_[static_cast<std::size_t>(i)] * inverse_(i, j);
            sum += projection * projection;
        }
        return sum;
    }

private:
    int degree_;
    bool constant_term_;
    std::vector<double> lengths_;
    /// Of the triangle of the scaled columns.
    matrix inverse_;
};

added_curves bands_of(const fit_outcome& outcome, const regression_fit& fit)
{
    const curve_variance variance(outcome, fit);
    const std::vector<polynomial_term> terms = polynomial_terms(fit.values, outcome.free_parameter);
    const double half = Td(fit.n - static_cast<int>(fit.values.size())) * std::sqrt(fit.statistics.Variance);
    const std::vector<double> x = even_points(fit.x.front());
    std::vector<std::vector<double>> bounds(4);
    for (const double at : x) {
        const double y = value_of(terms, at);
        const double part = variance.at(at);
        const double widths[] = {half * std::sqrt(part), half * std::sqrt(1.0 + part)};
        for (std::size_t band = 0; band < 2; ++band) {
            bounds[2 * band].push_back(y - widths[band]);
            bounds[2 * band + 1].push_back(y + widths[band]);
        }
    }
    added_curves added = {{outcome.independents.front(), shared_values(x)}, {}};
    const char* const names[] = {" 95% confidence lower", " 95% confidence upper", " 95% prediction lower",
                                 " 95% prediction upper"};
    for (std::size_t i = 0; i < bounds.size(); ++i)
        added.curves.push_back({outcome.dependent + names[i], shared_values(std::move(bounds[i]))});
    return added;
}

} // namespace

std::optional<added_curves> polynomial_bands(const fit_outcome& outcome, const regression_fit& fit)
{
    if (fit.n <= static_cast<int>(fit.values.size())) return std::nullopt;
    try {
        return bands_of(outcome, fit);
    } catch (const runtime_failure&) {
        return std::nullopt;
    }
}

std::vector<curve_style> band_styles()
{
    constexpr std::size_t confidence_colour = 2;
    constexpr std::size_t prediction_colour = 3;
    const auto style = [](std::size_t colour, std::size_t dashes) {
        return curve_style{curve_palette()[colour], dashes_of(dashes), 0, true};
    };
    const curve_style confidence = style(confidence_colour, 1);
    const curve_style prediction = style(prediction_colour, 3);
    return {confidence, confidence, prediction, prediction};
}

} // namespace kelvarin
