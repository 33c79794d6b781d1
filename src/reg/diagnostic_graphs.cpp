// SPDX-License-Identifier: MIT
#include "reg/diagnostic_graphs.h"

#include "numeric/fit/distributions.h"
#include "platform/run_time_text.h"
#include "reg/details_text.h"
#include "reg/fit_details.h"

#include <algorithm>
#include <numeric>
#include <optional>
#include <string>
#include <utility>

namespace kelvarin
{

namespace
{

/// Of the numbers in functions, which the legend shows.
constexpr int shown_digits = 5;

/// The last fit, and what all its graphs need.
struct examined_fit
{
    const fit_outcome& outcome;
    const regression_fit& fit;
    std::string mark;
    std::vector<double> residuals;
    std::vector<double> rows;
    std::optional<fit_diagnosis> diagnosis;

    std::string residual_name() const { return outcome.dependent + "exp -" + outcome.dependent + "calc"; }
};

examined_fit examine(const fit_problem& problem, const fit_outcome& outcome, run_listener& listener)
{
    const regression_fit& fit = outcome.fits.back();
    examined_fit examined = {outcome, fit, ", Solution " + number_of_fit(problem, fit), {}, {}, {}};
    for (std::size_t i = 0; i < fit.y.size(); ++i)
        examined.residuals.push_back(fit.y[i] - fit.calculated[i]);
    examined.rows.resize(fit.y.size());
    std::iota(examined.rows.begin(), examined.rows.end(), 1.0);
    examined.diagnosis = details_of(outcome, fit, listener).diagnosis;
    return examined;
}

/// Points without lines. The numbers of their rows are a further curve, which is not shown, so that they stay with the
/// points when these are sorted.
graph_start points(std::string caption, start_column x, start_column y, std::vector<double> rows, std::string function)
{
    std::string y_title = y.name;
    return {.caption = std::move(caption),
            .columns = {std::move(x), std::move(y), {std::string(row_column), std::move(rows)}},
            .visible = {true, false},
            .function_text = std::move(function),
            .y_title = std::move(y_title),
            .connected = false,
            .points = true};
}

graph_start residuals_over(const examined_fit& examined, const std::string& what, start_column x)
{
    return points("Residuals over " + what + examined.mark, std::move(x),
                  {examined.residual_name(), examined.residuals}, examined.rows, "0");
}

graph_start normal_plot(const examined_fit& examined)
{
    const std::size_t n = examined.residuals.size();
    std::vector<std::size_t> order(n);
    std::iota(order.begin(), order.end(), std::size_t{0});
    std::ranges::stable_sort(order, {}, [&](std::size_t i) { return examined.residuals[i]; });
    start_column expected = {"normal value", {}};
    start_column sorted = {examined.residual_name(), {}};
    std::vector<double> rows;
    for (std::size_t place = 0; place < n; ++place) {
        expected.values.push_back(
            normal_quantile((static_cast<double>(place) + 0.625) / (static_cast<double>(n) + 0.25)));
        sorted.values.push_back(examined.residuals[order[place]]);
        rows.push_back(examined.rows[order[place]]);
    }
    // Where normal residuals of the fit's deviation would lie.
    std::string line =
        examined.diagnosis ? plain_text(examined.diagnosis->deviation, shown_digits) + "*x" : std::string();
    return points("Normal probability plot" + examined.mark, std::move(expected), std::move(sorted), std::move(rows),
                  std::move(line));
}

graph_start leverage_graph(const examined_fit& examined)
{
    const double mean =
        static_cast<double>(examined.fit.values.size()) / static_cast<double>(examined.residuals.size());
    return points("Leverage" + examined.mark, {"row", examined.rows}, {"leverage", examined.diagnosis->leverage},
                  examined.rows, plain_text(2.0 * mean, shown_digits));
}

void add_graphs(const examined_fit& examined, diagnostic which, diagnostics_outcome& drawn)
{
    const fit_outcome& outcome = examined.outcome;
    switch (which) {
    case diagnostic::calculated:
        drawn.graphs.push_back(
            residuals_over(examined, "calculated values", {outcome.dependent + " calc", examined.fit.calculated}));
        break;
    case diagnostic::variables:
        for (std::size_t k = 0; k < outcome.independents.size(); ++k)
            drawn.graphs.push_back(
                residuals_over(examined, outcome.independents[k], {outcome.independents[k], examined.fit.x[k]}));
        break;
    case diagnostic::rows:
        drawn.graphs.push_back(residuals_over(examined, "rows", {"row", examined.rows}));
        break;
    case diagnostic::normal:
        drawn.graphs.push_back(normal_plot(examined));
        break;
    case diagnostic::leverage:
        if (examined.diagnosis)
            drawn.graphs.push_back(leverage_graph(examined));
        else
            drawn.boxes.push_back({"There is no leverage to show: the parameters depend on each other, or there are no "
                                   "more observations than parameters.",
                                   box_icon::exclamation});
        break;
    }
}

} // namespace

diagnostics_outcome draw_diagnostics(const fit_problem& problem, const fit_outcome& outcome,
                                     std::span<const diagnostic> wanted, run_listener& listener)
{
    diagnostics_outcome drawn;
    guard_run(drawn, details_endings(), [&] {
        const examined_fit examined = examine(problem, outcome, listener);
        for (const diagnostic which : wanted)
            add_graphs(examined, which, drawn);
        drawn.has_report = true;
    });
    return drawn;
}

} // namespace kelvarin
