// SPDX-License-Identifier: MIT
#pragma once

#include "opt/opt_run.h"
#include "opt/opt_verdict.h"

#include <optional>
#include <string>
#include <vector>

namespace kelvarin
{

/// What the window says about a run beside its report.
struct opt_run_card
{
    /// The verdict with its numbers; empty without one.
    std::string verdict;
    /// What to doubt, and what to try; a sentence or two each.
    std::vector<std::string> advice;
};

opt_run_card opt_run_card_of(const opt_outcome& outcome, const std::optional<opt_verdict>& verdict);

/// The rounds of a run as rich text without prolog: a line for each evaluation of the target, gradients apart, with the
/// iteration that it began.
std::string opt_trace(const opt_outcome& outcome);

} // namespace kelvarin
