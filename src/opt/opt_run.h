// SPDX-License-Identifier: MIT
#pragma once

#include "numeric/minimize/NR_OPT.h"
#include "opt/opt_content.h"
#include "opt/opt_points.h"
#include "platform/clock.h"
#include "platform/run_listener.h"
#include "shell/document/run_outcome.h"
#include "shell/settings.h"

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <vector>

namespace kelvarin
{

/// The input of a run: a copy of a document's content, and the path of its file.
struct opt_run_problem
{
    opt_content content;
    /// Empty if the problem has no file.
    std::filesystem::path path;
};

/// The result of a run: report, JSON and graph are functions of it, the problem and the date.
struct opt_outcome : run_outcome
{
    opt_method method = opt_method::conjugate_grad;
    /// The variables with a start value, in row order: names, start, and what the method left.
    std::vector<std::string> names;
    std::vector<double> start;
    std::vector<double> x;
    /// Explicit variables in sorted order, with their values at x.
    std::vector<std::string> explicit_names;
    std::vector<double> explicit_values;

    /// The target at the start, and as the method returns it.
    double start_value = 0.0;
    double objective = 0.0;
    int iterations = 0;
    /// Evaluations of the target that the method asked for.
    std::int64_t evaluations = 0;
    /// Of conmin.
    std::optional<conmin_ending> ending;

    /// Where the method evaluated the target, gradients apart, and the indices of those where its iterations began.
    /// Without a report up to the end of the run.
    std::vector<target_point> points;
    std::vector<std::size_t> iterates;
    /// If that is why the run failed.
    std::optional<failed_difference> failed;
};

/// `run_opt`: runs the problem. Every refusal or failure is a box of the outcome, and so is a stop asked for by the
/// listener; an incomplete problem is refused first. Never throws; changes none of its arguments but the listener.
opt_outcome run_opt(const opt_run_problem& problem, const settings& store, const wall_clock& clock,
                    run_listener& listener);

} // namespace kelvarin
