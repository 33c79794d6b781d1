// SPDX-License-Identifier: MIT
#pragma once

#include "deq/deq_content.h"
#include "deq/deq_summary.h"
#include "numeric/ode/ode_observer.h"
#include "platform/run_listener.h"
#include "platform/stopwatch.h"
#include "shell/document/named_columns.h"
#include "shell/document/run_outcome.h"
#include "shell/settings.h"

#include <atomic>
#include <filesystem>
#include <string>
#include <vector>

namespace kelvarin
{

/// The input of a run: a copy of a document's content, and the path of its file.
struct deq_run_problem
{
    deq_content content;
    /// Empty if the problem has no file.
    std::filesystem::path path;
};

/// The result of a run: report, JSON, table and graph are functions of it, the problem and the date.
struct deq_outcome : run_outcome
{
    deq_method method = deq_method::rkf45;
    /// The range of the independent variable.
    std::string independent;
    double x1 = 0.0;
    double x2 = 0.0;
    /// The equations in the order of the run: differential ones in row order, explicit ones sorted.
    std::vector<std::string> differential_names, differential_right_sides;
    std::vector<std::string> explicit_names, explicit_right_sides;

    /// The stored points; without a report, those stored before the run ended.
    named_columns points;
    /// A row for each column of the points; empty if there is no report.
    std::vector<deq_summary_row> summary;
    /// Without a report, as of the last step.
    ode_summary statistics;
    /// An explicit method whose steps seem to be held down by stability.
    bool stiffness_suspected = false;
};

/// What a run has to say while it is under way; may be read from another thread.
struct deq_run_alerts
{
    std::atomic<bool> stiffness_suspected = false;
};

/// Runs the problem. Every refusal or failure is a box of the outcome, and so is a stop asked for by the listener; an
/// incomplete problem is refused first. Never throws; changes none of its arguments but listener and alerts.
deq_outcome run_deq(const deq_run_problem& problem, const settings& store, run_listener& listener,
                    const stopwatch& seconds = steady_seconds, deq_run_alerts* alerts = nullptr);

} // namespace kelvarin
