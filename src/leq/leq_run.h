// SPDX-License-Identifier: MIT
#pragma once

#include "leq/leq_content.h"
#include "platform/clock.h"
#include "platform/message_box.h"
#include "platform/stopwatch.h"

#include <filesystem>
#include <string>
#include <vector>

namespace kelvarin
{

/// A problem as a run takes it: a copy of a document's content, and where it is kept.
struct leq_run_problem
{
    leq_content content;
    /// Empty where the problem has no file.
    std::filesystem::path path;
};

/// From here on the report warns: a solution of equations that do not say more than this.
inline constexpr double largest_leq_residual = 1e-8;
inline constexpr double least_reciprocal_condition = 1e-12;

/// Everything that a run found out.
struct leq_outcome
{
    /// A report is to be made; otherwise the boxes say why not.
    bool has_report = false;
    std::vector<message_box> boxes;
    /// The cell that kept the problem from being solved, where one did.
    std::optional<leq_cell> fault;

    std::vector<double> solution;
    /// How far the solution is from the equations, as relative_residual tells it.
    double residual = 0.0;
    /// As reciprocal_condition tells it.
    double reciprocal_condition = 0.0;
    /// Of the elimination alone.
    double elapsed_seconds = 0.0;

    /// The report holds no warning.
    bool trustworthy() const
    {
        return !(residual > largest_leq_residual) && !(reciprocal_condition < least_reciprocal_condition);
    }
};

/// Solves A x = beta by Gauss-Jordan elimination with full pivoting, once every cell is numeric. Never throws.
leq_outcome run_leq(const leq_content& content, const stopwatch& seconds = steady_seconds);

/// The report as a rich-text document. `outcome.has_report` is true.
std::string leq_report(const leq_run_problem& problem, const leq_outcome& outcome, calendar_date date);

} // namespace kelvarin
