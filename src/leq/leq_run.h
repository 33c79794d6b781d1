// SPDX-License-Identifier: MIT
#pragma once

#include "leq/leq_content.h"
#include "platform/stopwatch.h"
#include "shell/document/run_outcome.h"

#include <filesystem>
#include <optional>
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
struct leq_outcome : run_outcome
{
    /// The cell that kept the problem from being solved, where one did.
    std::optional<leq_cell> fault;

    std::vector<double> solution;
    /// How far the solution is from the equations, in the measure of relative_residual.
    double residual = 0.0;
    /// In the measure of reciprocal_condition.
    double reciprocal_condition = 0.0;

    /// The report holds no warning.
    bool trustworthy() const
    {
        return !(residual > largest_leq_residual) && !(reciprocal_condition < least_reciprocal_condition);
    }
};

/// Solves A x = beta by Gauss-Jordan elimination with full pivoting, once every cell is numeric. Never throws.
leq_outcome run_leq(const leq_content& content, const stopwatch& seconds = steady_seconds);

} // namespace kelvarin
