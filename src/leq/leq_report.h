// SPDX-License-Identifier: MIT
#pragma once

#include "leq/leq_run.h"
#include "platform/clock.h"

#include <string>

namespace kelvarin
{

/// The report as a rich-text document. `outcome.has_report` must be true.
std::string leq_report(const leq_run_problem& problem, const leq_outcome& outcome, calendar_date date);

} // namespace kelvarin
