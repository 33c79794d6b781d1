// SPDX-License-Identifier: MIT
#pragma once

#include "batch/command_line.h"

#include <ostream>

namespace kelvarin
{

/// Answers --convert, --units and --constants from the data files; faulty lines of these files are reported on `err`.
/// Returns the exit status.
int answer_from_tables(const batch_request& request, std::ostream& out, std::ostream& err);

} // namespace kelvarin
