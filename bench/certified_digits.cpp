// SPDX-License-Identifier: MIT
// Prints the digits that the methods show on the certified nonlinear problems, as the table of docs/methods.md.
#include "certified_fits.h"
#include "reg/fit_details.h"
#include "support/digits.h"

#include <algorithm>
#include <cstdio>
#include <exception>
#include <filesystem>
#include <optional>
#include <string>
#include <vector>

namespace
{

using namespace kelvarin;
using namespace kelvarin::bench;
using test::certified_problem;

std::string digits(double value)
{
    char text[32];
    std::snprintf(text, sizeof text, "%.1f", value);
    return text;
}

fit_outcome solved(const certified_problem& problem, std::size_t start, nonlinear_method method)
{
    recording_listener listener;
    return solve_regression(as_problem(problem, start, method), settings(), listener);
}

/// "4.0 / 8.2", parameters and sum of squares.
std::string as_reported(const certified_problem& problem, const fit_outcome& outcome)
{
    if (!outcome.has_report) return "ends with a message";
    const regression_fit& fit = outcome.fits.front();
    return digits(worst_digits(fit, problem)) + " / " + digits(test::digits_shown(fit.statistics.SSE, problem.rss));
}

/// Not converged is told to the user, and marked.
std::string polished(const certified_problem& problem, const fit_outcome& outcome)
{
    if (!outcome.has_report) return "-";
    recording_listener listener;
    const polished_fit found = polish_fit(outcome, listener);
    if (!found.has_report) return "message";
    return digits(worst_digits(found.fit, problem)) + (found.converged ? "" : " (warned)");
}

std::string by_gsl(const certified_problem& problem)
{
    std::string both;
    for (const std::size_t start : {std::size_t{0}, std::size_t{1}}) {
        const yardstick fit = fit_by_gsl(as_typed(problem, start), 1e-8);
        if (!fit) return "-";
        fit.run();
        both += (both.empty() ? "" : ", ") + digits(worst_digits(*fit.values, problem));
    }
    return both;
}

void print_row(const std::string& name)
{
    const certified_problem problem = test::read_certified(name);
    if (problem.parameters.front().starts.empty()) return;
    std::string told;
    std::string refined;
    for (const nonlinear_method method : {nonlinear_method::mrqmin, nonlinear_method::lm}) {
        refined += " |";
        for (const std::size_t start : {std::size_t{0}, std::size_t{1}}) {
            const fit_outcome outcome = solved(problem, start, method);
            told += " | " + as_reported(problem, outcome);
            refined += (start == 0 ? " " : ", ") + polished(problem, outcome);
        }
    }
    std::printf("| %s%s%s | %s |\n", name.c_str(), told.c_str(), refined.c_str(), by_gsl(problem).c_str());
}

} // namespace

int main()
{
    std::vector<std::string> names;
    for (const auto& entry : std::filesystem::directory_iterator(std::string(KELVARIN_TEST_DATA) + "/nist"))
        if (entry.path().extension() == ".txt") names.push_back(entry.path().stem().string());
    std::ranges::sort(names);
    std::puts("| problem | mrqmin 1 | mrqmin 2 | L-M 1 | L-M 2 | mrqmin polished | L-M polished | GSL lm |");
    std::puts("|---|---|---|---|---|---|---|---|");
    try {
        for (const std::string& name : names)
            print_row(name);
    } catch (const std::exception& failure) {
        std::fprintf(stderr, "%s\n", failure.what());
        return 1;
    }
    return 0;
}
