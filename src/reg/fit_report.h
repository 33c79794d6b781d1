// SPDX-License-Identifier: MIT
#pragma once

#include "platform/clock.h"
#include "reg/fit_run.h"

#include <string>

namespace kelvarin
{

/// The report of a regression as rich text; the outcome must have a report.
std::string fit_report(const fit_problem& problem, const fit_outcome& outcome, const settings& store,
                       calendar_date date);

} // namespace kelvarin
