// SPDX-License-Identifier: MIT
#pragma once

#include "nle/nle_content.h"
#include "numeric/nonlinear/NR_vbCNLE.h"
#include "platform/clock.h"
#include "platform/message_box.h"
#include "platform/run_listener.h"
#include "shell/settings.h"

#include <filesystem>
#include <optional>
#include <string>
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

enum class nle_run_kind
{
    explicit_only,
    single,
    system
};

/// Everything that a run found out: report, JSON and graph are functions of it, the problem and the date.
struct nle_outcome
{
    nle_run_kind kind = nle_run_kind::system;
    /// A report is to be made; otherwise the boxes say why not.
    bool has_report = false;
    bool stopped = false;
    std::vector<message_box> boxes;

    nle_method method = nle_method::fastnewt;
    /// The problem's equations as the run saw them: implicit ones in row order, explicit ones sorted.
    std::vector<std::string> implicit_names, implicit_right_sides;
    std::vector<std::string> explicit_names, explicit_right_sides;

    /// Of a system, or of explicit rows alone.
    nle_solution solution;
    std::vector<sign_constraint> constraints;
    cnle_code code = cnle_code::converged;
    /// Steps of the solver, of a system only.
    std::optional<int> iterations;

    /// Of a single equation: the roots in the order found, the values at the guess, and the scan.
    std::vector<nle_solution> roots;
    nle_solution initial_values;
    std::vector<double> scan_x, scan_f;
    double lower = 0.0, upper = 0.0;

    std::int64_t elapsed_seconds = 0;

    /// Sum of absolute residuals of a system.
    double residual_sum() const;
    /// The report holds no warning.
    bool converged() const;
};

/// Runs the problem: the dispatch by its number of implicit rows, with every refusal told as a box. The
/// light is looked at first. Never throws; never touches anything but its arguments.
nle_outcome run_nle(const nle_run_problem& problem, const settings& store, const wall_clock& clock,
                    run_listener& listener);

/// The report as a rich-text document. `outcome.has_report` is true.
std::string nle_report(const nle_run_problem& problem, const nle_outcome& outcome, const settings& store,
                       calendar_date date);

} // namespace kelvarin
