// SPDX-License-Identifier: MIT
#pragma once

#include "reg/fit_run.h"
#include "shell/report/json_writer.h"

namespace kelvarin
{

/// The members that a regression adds to a JSON answer; fits and graphs also of a run that failed later. Graphs only if
/// `with_graphs`.
void write_fit_members(json_writer& writer, const fit_problem& problem, const fit_outcome& outcome, bool with_graphs);

} // namespace kelvarin
