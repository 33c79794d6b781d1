// SPDX-License-Identifier: MIT
#include "certified_fits.h"

#include "support/digits.h"
#include "support/tables.h"

#include <algorithm>

namespace kelvarin::bench
{

fit_problem as_problem(const test::certified_problem& certified, std::size_t start, nonlinear_method method)
{
    const table_size size = {static_cast<int>(certified.y().size()), static_cast<int>(certified.columns.size())};
    fit_problem problem = {test::table_of(certified.texts, size),
                           {.kind = regression::nonlinear, .method = method, .model = certified.model}};
    for (const auto& each : certified.parameters)
        problem.request.guesses.push_back({each.name, test::shortest_text(each.starts.at(start))});
    return problem;
}

typed_fit as_typed(const test::certified_problem& certified, std::size_t start)
{
    typed_fit typed;
    typed.expression = certified.model.substr(certified.model.find('=') + 1);
    for (const auto& each : certified.parameters)
        typed.parameters.push_back(each.name);
    for (std::size_t i = 1; i < certified.columns.size(); ++i) {
        typed.variables.push_back(certified.texts[i].first);
        typed.x.push_back(certified.columns[i]);
    }
    typed.y = certified.y();
    typed.start = certified.start(start);
    return typed;
}

double worst_digits(std::span<const double> values, const test::certified_problem& certified)
{
    if (values.empty()) return 0.0;
    double worst = test::digits_shown(0.0, 0.0);
    for (std::size_t j = 0; j < values.size(); ++j)
        worst = std::min(worst, test::digits_shown(values[j], certified.parameters[j].value));
    return worst;
}

double worst_digits(const regression_fit& fit, const test::certified_problem& certified)
{
    std::vector<double> values;
    for (const auto& each : certified.parameters)
        values.push_back(
            fit.values.at(static_cast<std::size_t>(std::ranges::find(fit.names, each.name) - fit.names.begin())));
    return worst_digits(values, certified);
}

} // namespace kelvarin::bench
