// SPDX-License-Identifier: MIT
#pragma once

#include "nle/nle_content.h"
#include "numeric/nonlinear/NR_vbCNLE.h"
#include "platform/clock.h"
#include "platform/run_listener.h"
#include "shell/document/named_columns.h"
#include "shell/document/run_outcome.h"
#include "shell/settings.h"

#include <filesystem>
#include <string>
#include <variant>
#include <vector>

namespace kelvarin
{

/// A problem as a run takes it: a copy of a document's content, and where it is kept.
struct nle_run_problem
{
    nle_content content;
    /// Empty where the problem has no file.
    std::filesystem::path path;
};

struct implicit_result
{
    std::string name;
    double value = 0.0;
    /// As the solver left it: it may belong to the point before the last step.
    double residual = 0.0;
    double guess = 0.0;
};

struct explicit_result
{
    std::string name;
    double value = 0.0;
};

/// The unknowns and the explicit variables at one solution, the latter in sorted order.
struct nle_solution
{
    std::vector<implicit_result> implicit;
    std::vector<explicit_result> explicit_values;
};

/// A system counts as solved up to this sum of absolute residuals, whatever the tolerances.
inline constexpr double largest_residual_sum = 10.0;

/// What a run found out about several implicit equations.
struct nle_system_result
{
    nle_solution solution;
    /// How the constrained method ended; the others throw where they fail.
    cnle_code code = cnle_code::converged;
    /// Steps of the solver.
    int iterations = 0;

    /// Sum of absolute residuals.
    double residual_sum() const;
};

/// What a run found out about one implicit equation.
struct nle_single_result
{
    /// In the order found.
    std::vector<nle_solution> roots;
    /// The values at the problem's guess.
    nle_solution initial_values;
    /// Two columns: the unknown, and the equation's right side there.
    named_columns scan;
    /// The range of the search.
    double lower = 0.0, upper = 0.0;
};

/// The values of explicit equations alone, in sorted order.
struct nle_explicit_result
{
    std::vector<explicit_result> values;
};

/// Everything that a run found out: report, JSON and graph are functions of it, the problem and the date.
struct nle_outcome : run_outcome
{
    nle_method method = nle_method::fastnewt;
    /// The problem's equations as the run saw them: implicit ones in row order, explicit ones sorted.
    std::vector<std::string> implicit_names, implicit_right_sides;
    std::vector<std::string> explicit_names, explicit_right_sides;
    /// One for each implicit equation.
    std::vector<sign_constraint> constraints;
    /// By the number of implicit equations; empty where there is no report.
    std::variant<nle_system_result, nle_single_result, nle_explicit_result> result;

    /// The report holds no warning.
    bool converged() const;
};

/// Runs the problem: the dispatch by its number of implicit rows, with every refusal as a box of the outcome. The
/// light is looked at first. Never throws; never touches anything but its arguments.
nle_outcome run_nle(const nle_run_problem& problem, const settings& store, const wall_clock& clock,
                    run_listener& listener);

} // namespace kelvarin
