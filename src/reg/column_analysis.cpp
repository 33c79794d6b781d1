// SPDX-License-Identifier: MIT
#include "reg/column_analysis.h"

#include "numeric/arithmetic_check.h"
#include "numeric/curve/cubic_spline.h"
#include "numeric/curve/polynomial_interpolation.h"
#include "numeric/curve/quadrature.h"
#include "numeric/curve/rational_interpolation.h"
#include "platform/format_mask.h"
#include "platform/run_time_text.h"
#include "platform/text_file.h"
#include "shell/general_lib.h"

#include <algorithm>
#include <cmath>
#include <numeric>
#include <utility>

namespace kelvarin
{

namespace
{

using three_values = std::array<double, analysis_method_count>;

constexpr std::size_t rational_method = 0;
constexpr int least_points_of_derivative = 4;
constexpr double smooth_deviation = 0.2;
constexpr double smooth_deviation_of_integral = 0.1;

message_box stop_box(std::string text)
{
    return {std::move(text), box_icon::critical};
}

int filled_rows(const table_reader& table, const analysis_columns& columns)
{
    if (!columns.independent || !columns.dependent) return 0;
    const std::array<int, 2> both = {*columns.independent, *columns.dependent};
    return table.leading_rows(both, last_row::left_out);
}

double standard_derivative(const analysis_points& points, double x)
{
    constexpr double step = 1e-10;
    const std::vector<double> y2 = spline(points.x, points.y);
    return finite((splint(points.x, points.y, y2, x + step) - splint(points.x, points.y, y2, x)) / step);
}

double gauss_legendre_integral(const analysis_points& points, std::span<const double> y2, double a, double b,
                               const pause_point& pause)
{
    const quadrature_rule rule = gauleg(a, b, points.n(), pause);
    double sum = 0.0;
    for (std::size_t i = 0; i < rule.nodes.size(); ++i)
        sum += rule.weights[i] * splint(points.x, points.y, y2, rule.nodes[i]);
    return finite(sum);
}

/// Over the points inside of (a, b), and the bounds with their values by the rational function.
double simpson_integral(const analysis_points& points, double a, double b, const pause_point& pause)
{
    std::vector<double> x = {a};
    std::vector<double> y = {ratint(points.x, points.y, a, pause).value};
    for (std::size_t i = 0; i < points.x.size(); ++i)
        if (a < points.x[i] && points.x[i] < b) {
            x.push_back(points.x[i]);
            y.push_back(points.y[i]);
        }
    x.push_back(b);
    y.push_back(ratint(points.x, points.y, b, pause).value);
    return simpson_unequal(x, y);
}

/// By one method; a <= b.
double integral_by(const analysis_points& points, std::size_t method, double a, double b, const pause_point& pause)
{
    if (method == 2) return simpson_integral(points, a, b, pause);
    const std::vector<double> y2 = spline(points.x, points.y);
    return method == 0 ? gauss_legendre_integral(points, y2, a, b, pause)
                       : spline_integral(points.x, points.y, y2, a, b);
}

three_values integrals(const analysis_points& points, double from, double to, const pause_point& pause)
{
    const auto [a, b] = std::minmax({from, to});
    const double sign = to < from ? -1.0 : 1.0;
    return {sign * integral_by(points, 0, a, b, pause), sign * integral_by(points, 1, a, b, pause),
            sign * integral_by(points, 2, a, b, pause)};
}

three_values values_by_all_methods(const analysis_points& points, analysis_kind kind, double x,
                                   const pause_point& pause)
{
    return {analysis_value(points, kind, 0, x, pause), analysis_value(points, kind, 1, x, pause),
            analysis_value(points, kind, 2, x, pause)};
}

double deviation_of(const three_values& values)
{
    const double mean = finite((values[0] + values[1] + values[2]) / 3.0);
    double distances = 0.0;
    for (const double value : values)
        distances += std::fabs(value - mean);
    return quotient(distances / 3.0, std::fabs(mean));
}

/// What prevents the request once its points are sorted.
std::optional<message_box> refusal_of(const analysis_points& points, const analysis_request& request)
{
    const bool integrates = request.kind == analysis_kind::integration;
    const std::optional<double> at = numeric_value(request.at);
    const std::optional<double> to = integrates ? numeric_value(request.to) : at;
    if (!at || !to)
        return stop_box(integrates ? "The bounds of the integration must be numeric values."
                                   : "Independent variable value must be a numeric value.");
    if (!x_in_range(points, *at) || !x_in_range(points, *to))
        return stop_box(integrates ? "Integration range must be inside the range where x data is available."
                                   : "Independent variable value must be inside the range where x data is available.");
    return count_refusal(points, request.kind);
}

void solve_points(const analysis_points& points, const analysis_request& request, const pause_point& pause,
                  analysis_outcome& outcome)
{
    if (std::optional<message_box> refused = refusal_of(points, request)) return outcome.refuse(std::move(*refused));
    const bool integrates = request.kind == analysis_kind::integration;
    const double at = *numeric_value(request.at);
    outcome.values = integrates ? integrals(points, at, *numeric_value(request.to), pause)
                                : values_by_all_methods(points, request.kind, at, pause);
    if (request.kind == analysis_kind::interpolation && request.method == rational_method)
        outcome.error = std::fabs(ratint(points.x, points.y, at, pause).error);
    outcome.deviation = deviation_of(outcome.values);
    outcome.warns = outcome.deviation > (integrates ? smooth_deviation_of_integral : smooth_deviation);
    outcome.has_report = true;
}

} // namespace

std::string_view analysis_name(analysis_kind kind)
{
    static constexpr std::array<std::string_view, 3> names = {"interpolation", "differentiation", "integration"};
    return names[static_cast<std::size_t>(kind)];
}

const std::array<std::string_view, analysis_method_count>& analysis_methods(analysis_kind kind)
{
    static constexpr std::array<std::array<std::string_view, analysis_method_count>, 3> methods = {
        {{"RATINT", "SPLINT", "LINEAR"}, {"STANDA", "LAGRANGE", "SPLINE"}, {"GAULEG", "SPLINE", "SIMPSON"}}};
    return methods[static_cast<std::size_t>(kind)];
}

analysis_columns default_analysis_columns(const table_reader& table)
{
    const std::vector<int> offered = table.started_columns();
    if (offered.size() < 2) return {};
    return {offered[0], offered[1]};
}

int analysis_row_count(const table_reader& table, const analysis_columns& columns)
{
    constexpr int without_data = 2;
    const int rows = filled_rows(table, columns);
    return rows == 0 ? without_data : rows;
}

analysis_points load_analysis_data(const table_reader& table, const analysis_columns& columns)
{
    const int n = analysis_row_count(table, columns);
    if (filled_rows(table, columns) == 0) {
        const std::vector<double> zeros(static_cast<std::size_t>(n), 0.0);
        return {zeros, zeros};
    }
    return {table.prefix_values(*columns.independent, n), table.prefix_values(*columns.dependent, n)};
}

std::optional<message_box> sort_analysis_data(analysis_points& points)
{
    std::vector<std::size_t> order(points.x.size());
    std::iota(order.begin(), order.end(), std::size_t{0});
    std::ranges::stable_sort(order, {}, [&](std::size_t i) { return points.x[i]; });
    analysis_points sorted;
    for (const std::size_t i : order) {
        sorted.x.push_back(points.x[i]);
        sorted.y.push_back(points.y[i]);
    }
    points = std::move(sorted);
    const auto twice = std::ranges::adjacent_find(points.x);
    if (twice == points.x.end()) return std::nullopt;
    return stop_box("Duplicate values not allowed in x vector (" + plain_text(*twice) + ").");
}

std::optional<message_box> count_refusal(const analysis_points& points, analysis_kind kind)
{
    if (kind == analysis_kind::differentiation && points.n() < least_points_of_derivative)
        return stop_box("At least four data points are required for this evaluation.");
    // The spline has no interval.
    if (points.n() < 2) return analysis_failure_box(runtime_failure(failure_number::subscript));
    return std::nullopt;
}

bool x_in_range(const analysis_points& points, double x)
{
    const auto [smallest, largest] = std::ranges::minmax(points.x);
    return smallest <= x && x <= largest;
}

double analysis_value(const analysis_points& points, analysis_kind kind, std::size_t method, double x,
                      const pause_point& pause)
{
    const auto& [xs, ys] = points;
    if (kind == analysis_kind::interpolation) {
        if (method == rational_method) return ratint(xs, ys, x, pause).value;
        return method == 1 ? spline_value(xs, ys, x) : linear_interpolation(xs, ys, x);
    }
    if (kind == analysis_kind::integration) return integral_by(points, method, xs.front(), x, pause);
    if (method == 0) return standard_derivative(points, x);
    return method == 1 ? lagrange_derivative(xs, ys, x) : spline_derivative(xs, ys, spline(xs, ys), x);
}

pause_point stop_at(const run_listener& listener)
{
    return [&listener] {
        if (listener.stop_asked()) throw run_stopped();
    };
}

analysis_outcome solve_analysis(const table_content& content, const analysis_request& request, run_listener& listener)
{
    const table_reader table(content);
    analysis_outcome outcome;
    outcome.kind = request.kind;
    outcome.chosen = request.method;
    outcome.n = analysis_row_count(table, request.columns);
    const run_ending_boxes endings = {analysis_failure_box, {}};
    guard_run(outcome, endings, [&] {
        analysis_points points = load_analysis_data(table, request.columns);
        if (std::optional<message_box> refused = sort_analysis_data(points)) return outcome.refuse(std::move(*refused));
        solve_points(points, request, stop_at(listener), outcome);
    });
    return outcome;
}

std::string error_text(double error)
{
    return "Err = " + format_masked(error, "0.000E-00");
}

std::string deviation_text(double deviation)
{
    return "Dev = " + format_masked(deviation * 100.0, "0.00") + "%";
}

std::string derivative_label(std::string_view dependent, std::string_view independent)
{
    return "d (" + std::string(dependent) + ") / d " + std::string(independent);
}

std::string analysis_text(const analysis_outcome& outcome)
{
    const auto& methods = analysis_methods(outcome.kind);
    const auto shown = [](double value) { return std::string(trimmed(format_number(value))); };
    std::string text = shown(outcome.value()) + "\n\nN = " + std::to_string(outcome.n) + "\n";
    if (outcome.error) text += error_text(*outcome.error) + "\n";
    text += deviation_text(outcome.deviation) + "\n";
    if (outcome.warns) text += std::string(analysis_warning) + "\n";
    text += "\n";
    for (std::size_t method = 0; method < methods.size(); ++method)
        text += std::string(methods[method]) + " = " + shown(outcome.values[method]) + "\n";
    return text;
}

message_box analysis_failure_box(const runtime_failure& failure)
{
    const std::string text = failure.detail().empty() ? std::string(failure.description()) : failure.detail();
    return stop_box("Internal Error trapped.  (" + text + "). ");
}

} // namespace kelvarin
