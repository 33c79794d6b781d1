// SPDX-License-Identifier: MIT
#pragma once

#include "deq/deq_run.h"
#include "platform/clock.h"
#include "shell/settings.h"

#include <string>

namespace kelvarin
{

/// The report as a rich-text document. `outcome.has_report` is true. `with_comments`: the rows' comments are part of
/// it.
std::string deq_report(const deq_run_problem& problem, const deq_outcome& outcome, const settings& store,
                       calendar_date date, bool with_comments = true);

} // namespace kelvarin
