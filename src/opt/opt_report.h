// SPDX-License-Identifier: MIT
#pragma once

#include "opt/opt_run.h"
#include "platform/clock.h"
#include "shell/settings.h"

#include <string>

namespace kelvarin
{

/// The report as a rich-text document. `outcome.has_report` must be true. `with_comments`: include the comments of the
/// rows.
std::string opt_report(const opt_run_problem& problem, const opt_outcome& outcome, const settings& store,
                       calendar_date date, bool with_comments = true);

} // namespace kelvarin
