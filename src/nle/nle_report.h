// SPDX-License-Identifier: MIT
#pragma once

#include "nle/nle_run.h"
#include "platform/clock.h"
#include "shell/settings.h"

#include <string>

namespace kelvarin
{

/// The report as a rich-text document. `outcome.has_report` must be true.
std::string nle_report(const nle_run_problem& problem, const nle_outcome& outcome, const settings& store,
                       calendar_date date);

} // namespace kelvarin
