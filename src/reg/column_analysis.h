// SPDX-License-Identifier: MIT
#pragma once

#include "numeric/curve/pause_point.h"
#include "platform/run_listener.h"
#include "reg/table/table_content.h"
#include "reg/table/table_reader.h"
#include "shell/document/run_outcome.h"

#include <array>
#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

/// Interpolation, differentiation and integration of one column of a table with respect to another. Every request is
/// computed by all three methods of its kind; how far they are apart warns of functions that are not smooth.
namespace kelvarin
{

enum class analysis_kind
{
    interpolation,
    differentiation,
    integration
};

inline constexpr std::size_t analysis_method_count = 3;

/// "interpolation" and so on.
std::string_view analysis_name(analysis_kind kind);
/// The methods of a kind in the order of its list: "RATINT", "SPLINT", "LINEAR" for interpolation.
const std::array<std::string_view, analysis_method_count>& analysis_methods(analysis_kind kind);

/// The two columns of the analysis, from 0. Absent if none is chosen.
struct analysis_columns
{
    std::optional<int> independent;
    std::optional<int> dependent;
};

/// The columns that the page starts with: the first and the second of those offered; none if there are fewer.
analysis_columns default_analysis_columns(const table_reader& table);

/// The points of the analysis in ascending order of x, in arrays of their own: the table stays as it is.
struct analysis_points
{
    std::vector<double> x;
    std::vector<double> y;

    int n() const { return static_cast<int>(x.size()); }
};

/// The number of leading rows in which both columns hold something, the last row of the table left out; 2 if there are
/// none.
int analysis_row_count(const table_reader& table, const analysis_columns& columns);
/// These rows as they stand in the table; zeros if there are none. Throws runtime_failure 6 for a number that is too
/// large.
analysis_points load_analysis_data(const table_reader& table, const analysis_columns& columns);
/// Sorts by x. Returns the box of refusal if two x are equal.
std::optional<message_box> sort_analysis_data(analysis_points& points);
/// Whether x lies between the smallest and the largest x, both included.
bool x_in_range(const analysis_points& points, double x);

/// Why there are too few points for a kind of analysis.
std::optional<message_box> count_refusal(const analysis_points& points, analysis_kind kind);

struct analysis_request
{
    analysis_kind kind = analysis_kind::interpolation;
    analysis_columns columns;
    /// The index of the method whose result is asked for.
    std::size_t method = 0;
    /// As typed: x, or the lower bound.
    std::string at;
    /// The upper bound of an integration.
    std::string to;
};

struct analysis_outcome : run_outcome
{
    analysis_kind kind = analysis_kind::interpolation;
    /// The number of points.
    int n = 0;
    std::size_t chosen = 0;
    /// By all methods in their order. These and the members below mean something only if the outcome is a result
    /// (has_report).
    std::array<double, analysis_method_count> values = {};
    /// The rational function's estimate of its error, without sign; only if that method is the chosen one.
    std::optional<double> error;
    /// The mean deviation from the mean of the three values, over that mean.
    double deviation = 0.0;
    bool warns = false;

    double value() const { return values[chosen]; }
};

/// Never throws. Poles, equal results of 0 and the like are told in a box. With thousands of points it takes seconds,
/// as the rational function and the Gauss-Legendre nodes grow with their square.
analysis_outcome solve_analysis(const table_content& content, const analysis_request& request, run_listener& listener);

/// Throws run_stopped at the next pause after the listener has been asked to stop.
pause_point stop_at(const run_listener& listener);

/// One method at one x within the range of sorted points, of which there are enough; an integral is that from the first
/// of them on. Throws runtime_failure as the method does.
double analysis_value(const analysis_points& points, analysis_kind kind, std::size_t method, double x,
                      const pause_point& pause = {});

/// "Err = 1.234E-05".
std::string error_text(double error);
/// "Dev = 1.23%".
std::string deviation_text(double deviation);
inline constexpr std::string_view analysis_warning =
    "The function may contain nonsmooth regions. The calculated value may be inaccurate.";
/// "d (y) / d x".
std::string derivative_label(std::string_view dependent, std::string_view independent);

/// What the page shows of a result, as lines of text: the chosen value, error, deviation and warning, then all methods.
std::string analysis_text(const analysis_outcome& outcome);

/// The box of a failure within a request.
message_box analysis_failure_box(const runtime_failure& failure);

} // namespace kelvarin
