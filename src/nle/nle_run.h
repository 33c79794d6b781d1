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

/// The input of a run: a copy of a document's content, and the path of its file.
struct nle_run_problem
{
    nle_content content;
    /// Empty if the problem has no file.
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

/// The unknowns and, in sorted order, the explicit variables at one solution.
struct nle_solution
{
    std::vector<implicit_result> implicit;
    std::vector<explicit_result> explicit_values;
};

/// A system counts as solved up to this sum of absolute residuals, independent of the tolerances.
inline constexpr double largest_residual_sum = 10.0;

/// The result of several implicit equations.
struct nle_system_result
{
    nle_solution solution;
    /// How the constrained method ended; the other methods throw if they fail.
    cnle_code code = cnle_code::converged;
    /// Number of steps of the solver.
    int iterations = 0;

    /// Sum of absolute residuals.
    double residual_sum() const;
};

/// The result of one implicit equation.
struct nle_single_result
{
    /// In the order found.
    std::vector<nle_solution> roots;
    /// The values at the problem's guess.
    nle_solution initial_values;
    /// Two columns: the unknown, and the equation's right side there.
    named_columns scan;
    /// The search range.
    double lower = 0.0, upper = 0.0;
};

/// The values of explicit equations alone, in sorted order.
struct nle_explicit_result
{
    std::vector<explicit_result> values;
};

/// The result of a run: report, JSON and graph are functions of it, the problem and the date.
struct nle_outcome : run_outcome
{
    nle_method method = nle_method::fastnewt;
    /// The equations in the order of the run: implicit ones in row order, explicit ones sorted.
    std::vector<std::string> implicit_names, implicit_right_sides;
    std::vector<std::string> explicit_names, explicit_right_sides;
    /// One for each implicit equation.
    std::vector<sign_constraint> constraints;
    /// The alternative goes by the number of implicit equations; default values if there is no report.
    std::variant<nle_system_result, nle_single_result, nle_explicit_result> result;

    /// Whether the report holds no warning.
    bool converged() const;
};

/// Runs the problem by the solver for its number of implicit rows. Every refusal is a box of the outcome; an incomplete
/// problem is refused first. Never throws; changes none of its arguments but the listener.
nle_outcome run_nle(const nle_run_problem& problem, const settings& store, const wall_clock& clock,
                    run_listener& listener);

} // namespace kelvarin
