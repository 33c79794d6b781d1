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

/// The input of a run: a copy of a document's content, and the path of its file.
struct leq_run_problem
{
    leq_content content;
    /// Empty if the problem has no file.
    std::filesystem::path path;
};

/// The report warns of residuals larger than this.
inline constexpr double largest_leq_residual = 1e-8;
inline constexpr double least_reciprocal_condition = 1e-12;

/// The result of a run.
struct leq_outcome : run_outcome
{
    /// The cell that prevented solving, if any.
    std::optional<leq_cell> fault;

    std::vector<double> solution;
    /// relative_residual of the solution.
    double residual = 0.0;
    /// reciprocal_condition of the matrix.
    double reciprocal_condition = 0.0;

    /// Whether the report holds no warning.
    bool trustworthy() const
    {
        return !(residual > largest_leq_residual) && !(reciprocal_condition < least_reciprocal_condition);
    }
};

/// Solves A x = beta by Gauss-Jordan elimination with full pivoting; refused if a cell is not numeric. Never throws.
leq_outcome run_leq(const leq_content& content, const stopwatch& seconds = steady_seconds);

} // namespace kelvarin
