// SPDX-License-Identifier: MIT
#pragma once

#include "deq/deq_run.h"

#include <string>
#include <vector>

namespace kelvarin
{

/// What the window says about a run beside its report.
struct deq_run_card
{
    /// Steps, evaluations, step lengths and time, or how far a stopped run came; else empty.
    std::string counts;
    /// What to doubt in the result or in the problem, and what to try; a sentence or two each.
    std::vector<std::string> advice;
};

/// Doubts about the end of an integration that has a report: x2 was not reached, the tolerance was relaxed, points are
/// missing towards the end.
std::vector<std::string> doubts_about_end(const deq_outcome& outcome);

deq_run_card deq_run_card_of(const deq_content& content, const deq_outcome& outcome);

} // namespace kelvarin
