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

#include <filesystem>
#include <string>
#include <vector>

namespace kelvarin
{

/// A problem as a run takes it: a copy of a document's content, and where it is kept.
struct deq_run_problem
{
    deq_content content;
    /// Empty where the problem has no file.
    std::filesystem::path path;
};

/// Everything that a run found out: report, JSON, table and graph are functions of it, the problem and the date.
struct deq_outcome : run_outcome
{
    deq_method method = deq_method::rkf45;
    /// The range of the independent variable.
    std::string independent;
    double x1 = 0.0;
    double x2 = 0.0;
    /// The problem's equations as the run saw them: differential ones in row order, explicit ones sorted.
    std::vector<std::string> differential_names, differential_right_sides;
    std::vector<std::string> explicit_names, explicit_right_sides;

    /// The stored points, named in full; of a run without report those that it got so far.
    named_columns points;
    /// A row for each column of the points; empty where there is no report.
    std::vector<deq_summary_row> summary;
    /// Of a run without report as of its last step.
    ode_summary statistics;
};

/// Runs the problem with the method of its content, with every refusal and failure as a box of the outcome. The light
/// is looked at first. A run that its listener stops is told "Calculations aborted.". Never throws; never touches
/// anything but its arguments.
deq_outcome run_deq(const deq_run_problem& problem, const settings& store, run_listener& listener,
                    const stopwatch& seconds = steady_seconds);

} // namespace kelvarin
