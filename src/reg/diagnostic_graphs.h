// SPDX-License-Identifier: MIT
#pragma once

#include "graph/graph_start.h"
#include "reg/fit_run.h"

#include <span>
#include <string_view>
#include <vector>

/// Graphs that show whether a fit can be trusted.
namespace kelvarin
{

enum class diagnostic
{
    /// Residuals over the calculated values, over each independent variable, and in the order of rows.
    calculated,
    variables,
    rows,
    /// The sorted residuals over the normal values of their places. [Blom1958]
    normal,
    /// The influence of each row on its own calculated value, and twice its mean. [DraperSmith1998] ch. 8
    leverage
};

inline constexpr diagnostic all_diagnostics[] = {diagnostic::calculated, diagnostic::variables, diagnostic::rows,
                                                 diagnostic::normal, diagnostic::leverage};

/// The name of the column that tells the row of the table, from 1, of each point: no column of a table has such a name.
inline constexpr std::string_view row_column = "table row";

struct diagnostics_outcome : run_outcome
{
    std::vector<graph_start> graphs;
};

/// The graphs of the last fit. Never throws.
diagnostics_outcome draw_diagnostics(const fit_problem& problem, const fit_outcome& outcome,
                                     std::span<const diagnostic> wanted, run_listener& listener);

} // namespace kelvarin
