// SPDX-License-Identifier: MIT
#include "certified_fits.h"
#include "numeric/fit/marquardt.h"
#include "numeric/fit/normal_equations.h"
#include "numeric/fit/scaled_marquardt.h"
#include "reg/row_model.h"
#include "sections.h"
#include "support/digits.h"
#include "table.h"
#include "values.h"

#include <algorithm>
#include <cstdio>
#include <functional>
#include <random>
#include <string>
#include <utility>
#include <variant>

namespace kelvarin::bench
{

namespace
{

void measure_linear(const std::string& name, const matrix& design, std::span<const double> y)
{
    linear_fit fit;
    const contender ours = {"fit", [&] { fit = fit_linear(design, y); }};
    ours.run();
    const yardstick other = linear_fit_by_gsl(design, y);
    if (!other) return print_note("no GSL to compare with");
    other.run();
    // What normal equations leave of degree 5.
    require_close(fit.coef, *other.values, 1e-6, name);
    print_line(name + ": gsl_multifit_linear / fit with its statistics", ratios({{"GSL", other.run}}, ours).front());
}

void measure_linear_fits()
{
    std::mt19937_64 generator(5);
    std::normal_distribution<double> error;
    std::vector<double> x(600), y;
    for (std::size_t i = 0; i < x.size(); ++i) {
        x[i] = static_cast<double>(i) / 150.0 - 2.0;
        y.push_back(1.0 + x[i] * (2.0 - x[i] * x[i]) + error(generator));
    }
    measure_linear("polynomial of degree 5, 600 rows", polynomial_design(x, 5, true), y);

    std::vector<std::vector<double>> columns(20, std::vector<double>(600));
    for (std::vector<double>& column : columns)
        std::ranges::generate(column, [&] { return error(generator); });
    const std::vector<std::span<const double>> spans(columns.begin(), columns.end());
    measure_linear("20 columns, 600 rows", columns_design(spans, true), y);
}

/// The loosest tolerance, in decades, by which the yardstick shows as many digits.
yardstick at_equal_digits(const test::certified_problem& certified, std::size_t start, double digits)
{
    for (int decade = 1; decade < 15; ++decade) {
        const yardstick tried = fit_by_gsl(as_typed(certified, start), std::pow(10.0, -decade));
        if (!tried) return {};
        tried.run();
        if (worst_digits(*tried.values, certified) >= digits) return tried;
    }
    return {};
}

void measure_fit(const std::string& name, nonlinear_method method, const goal& wanted)
{
    constexpr std::size_t start = 1;
    const test::certified_problem certified = test::read_certified(name);
    const typed_fit typed = as_typed(certified, start);
    recording_listener listener;
    auto compiled = row_model::compile(typed.expression, {typed.parameters, typed.variables, typed.x}, listener);
    row_model& model = *std::get<std::unique_ptr<row_model>>(compiled);
    const fit_model values = std::ref(model);
    nonlinear_fit fit;
    const contender ours = {"fit", [&] {
                                fit = method == nonlinear_method::mrqmin
                                          ? fit_mrqmin(values, typed.y, typed.start)
                                          : fit_scaled_marquardt(values, typed.y, typed.start);
                            }};
    ours.run();
    const double digits = worst_digits(fit.a, certified);
    char shown[32];
    std::snprintf(shown, sizeof shown, ", %.1f digits", digits);
    const std::string line = name + " by " + method_text(method) + shown;
    const yardstick other = at_equal_digits(certified, start, digits);
    if (!other) return print_note(line + ": GSL is missing, or shows fewer");
    print_line(line + ": GSL lm with muParser / fit", ratios({{"GSL", other.run}}, ours).front(), wanted);
}

} // namespace

void measure_fits()
{
    measure_linear_fits();
    for (const nonlinear_method method : {nonlinear_method::mrqmin, nonlinear_method::lm}) {
        measure_fit("misra1a", method, {});
        measure_fit("thurber", method, at_least(2.0));
        measure_fit("eckerle4", method, at_least(2.0));
    }
}

} // namespace kelvarin::bench
