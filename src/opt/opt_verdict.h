// SPDX-License-Identifier: MIT
#pragma once

#include "opt/opt_run.h"
#include "platform/run_listener.h"

#include <optional>
#include <string_view>

namespace kelvarin
{

/// What the point is at which a run ended.
enum class end_point
{
    minimum,
    maximum,
    /// Stationary, and along at least one direction the target changes by nothing that differences could tell.
    flat,
    saddle,
    not_converged,
    /// Along the way from the start the target falls without end.
    unbounded
};

/// "minimum", "maximum", "flat", "saddle", "not converged", "unbounded"
std::string_view end_point_word(end_point point);

struct opt_verdict
{
    end_point point = end_point::not_converged;
    /// Whether the target could be evaluated around the end point; if not, there are no numbers.
    bool has_numbers = false;
    /// The length of the gradient, and the extreme eigenvalues of the matrix of second differences.
    double gradient = 0.0;
    double least_eigenvalue = 0.0;
    double greatest_eigenvalue = 0.0;
};

/// Judges the result of a run, or the last point of one that failed, by differences of its own with small steps. All
/// words but "not converged" are given only where first and second differences at two steps agree on them. Returns
/// nullopt if the run evaluated nothing. May throw run_stopped.
std::optional<opt_verdict> judge_end_point(const opt_content& content, const opt_outcome& outcome,
                                           run_listener& listener);

} // namespace kelvarin
