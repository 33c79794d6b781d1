// SPDX-License-Identifier: MIT
#include "reg/fit_details.h"

#include "numeric/fit/normal_equations.h"
#include "numeric/linear/matrix_products.h"
#include "numeric/linear/thin_qr.h"
#include "reg/fit_failures.h"
#include "reg/row_model.h"

#include <algorithm>
#include <cmath>
#include <functional>
#include <memory>
#include <utility>
#include <variant>

namespace kelvarin
{

namespace
{

/// The coefficients by QR of columns scaled to length 1.
std::vector<double> solve_by_qr(matrix columns, std::span<const double> y)
{
    std::vector<double> lengths;
    for (int j = 0; j < columns.rows(); ++j) {
        double sum = 0.0;
        for (const double element : columns.row(j))
            sum += element * element;
        lengths.push_back(sum > 0.0 ? std::sqrt(sum) : 1.0);
        for (double& element : columns.row(j))
            element /= lengths.back();
    }
    std::vector<double> coef = least_squares_solution(factor_columns(columns), y);
    for (std::size_t j = 0; j < coef.size(); ++j)
        coef[j] /= lengths[j];
    return coef;
}

double digits_of_agreement(std::span<const double> a, std::span<const double> b)
{
    constexpr double all = 17.0;
    double least = all;
    for (std::size_t j = 0; j < a.size(); ++j) {
        const double distance = std::fabs(a[j] - b[j]);
        const double size = std::max(std::fabs(a[j]), std::fabs(b[j]));
        if (distance > 0.0) least = std::min(least, std::max(0.0, -std::log10(distance / size)));
    }
    return least;
}

/// A nonlinear model as the run compiled it; it refers to the fit.
std::unique_ptr<row_model> compiled_model(const fit_outcome& outcome, const regression_fit& fit, run_listener& listener)
{
    auto compiled = row_model::compile(outcome.expression, {fit.names, outcome.independents, fit.x}, listener);
    return std::move(std::get<std::unique_ptr<row_model>>(compiled));
}

void judge(polished_fit& polished, const matrix& gradient)
{
    regression_fit& fit = polished.fit;
    const int p = static_cast<int>(fit.values.size());
    fit.statistics = statistics_of_fit(fit.y, fit.calculated, p);
    fit.chisq = fit.statistics.SSE;
    fit.conf.assign(fit.values.size(), 0.0);
    const auto diagnosis = diagnose_fit(gradient, fit.y, fit.calculated);
    if (!diagnosis) return;
    // With a deviation of 1 the standard error is the root of the diagonal element.
    for (std::size_t j = 0; j < fit.conf.size() && diagnosis->deviation > 0.0; ++j) {
        const double root = diagnosis->standard_errors[j] / diagnosis->deviation;
        fit.conf[j] = half_width(fit.statistics.Variance, root * root, fit.n - p);
    }
}

void polish_nonlinear(const fit_outcome& outcome, run_listener& listener, polished_fit& polished)
{
    regression_fit& fit = polished.fit;
    const std::unique_ptr<row_model> model = compiled_model(outcome, fit, listener);
    const refine_options options = {.on_iteration = [&listener](int iteration, int limit) {
        listener.fraction_done(static_cast<double>(iteration - 1) / limit);
    }};
    refined_fit refined = refine_fit(std::ref(*model), fit.y, fit.values, options);
    fit.values = std::move(refined.a);
    fit.calculated = std::move(refined.calculated);
    fit.iterations = refined.iterations;
    polished.converged = refined.converged;
    judge(polished, refined.gradient);
}

void polish_linear(const fit_outcome& outcome, polished_fit& polished)
{
    regression_fit& fit = polished.fit;
    const matrix columns = columns_of(outcome, fit);
    fit.values = solve_by_qr(columns, fit.y);
    fit.calculated.assign(fit.y.size(), 0.0);
    for (int j = 0; j < columns.rows(); ++j)
        for (std::size_t i = 0; i < fit.y.size(); ++i)
            fit.calculated[i] += columns.row(j)[i] * fit.values[static_cast<std::size_t>(j)];
    polished.converged = true;
    judge(polished, columns);
}

} // namespace

matrix columns_of(const fit_outcome& outcome, const regression_fit& fit)
{
    if (outcome.kind == regression::polynomial)
        return matrix_transpose(polynomial_design(fit.x.front(), fit.degree, outcome.free_parameter));
    const std::vector<std::span<const double>> x(fit.x.begin(), fit.x.end());
    return matrix_transpose(columns_design(x, outcome.free_parameter));
}

fit_details details_of(const fit_outcome& outcome, const regression_fit& fit, run_listener& listener)
{
    fit_details details;
    if (outcome.kind == regression::nonlinear) {
        const std::unique_ptr<row_model> model = compiled_model(outcome, fit, listener);
        const matrix gradient = model_gradient(std::ref(*model), fit.values, fit.y.size());
        details.diagnosis = diagnose_fit(gradient, fit.y, fit.calculated);
        return details;
    }
    const matrix columns = columns_of(outcome, fit);
    details.diagnosis = diagnose_fit(columns, fit.y, fit.calculated);
    details.by_qr = solve_by_qr(columns, fit.y);
    details.agreeing_digits = digits_of_agreement(fit.values, details.by_qr);
    return details;
}

run_ending_boxes details_endings()
{
    return {regression_failure_box, {"Calculations aborted.", box_icon::exclamation}};
}

details_outcome examine_fits(const fit_outcome& outcome, run_listener& listener)
{
    details_outcome examined;
    guard_run(examined, details_endings(), [&] {
        for (const regression_fit& fit : outcome.fits)
            examined.details.push_back(details_of(outcome, fit, listener));
        examined.has_report = true;
    });
    return examined;
}

polished_fit polish_fit(const fit_outcome& outcome, run_listener& listener)
{
    polished_fit polished;
    guard_run(polished, details_endings(), [&] {
        polished.fit = outcome.fits.back();
        if (outcome.kind == regression::nonlinear)
            polish_nonlinear(outcome, listener, polished);
        else
            polish_linear(outcome, polished);
        polished.has_report = true;
    });
    return polished;
}

} // namespace kelvarin
