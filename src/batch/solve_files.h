// SPDX-License-Identifier: MIT
#pragma once

#include "batch/batch_surroundings.h"
#include "batch/command_line.h"
#include "batch/file_answer.h"

#include <string>

namespace kelvarin
{

/// Solves the problem of a file as requested. `listener` is that of this file.
file_answer solve_file(const std::string& file, const batch_request& request, const batch_surroundings& surroundings,
                       run_listener& listener);

/// Reports as JSON what is defined in a file and what is missing.
file_answer check_file(const std::string& file, const batch_request& request, run_listener& listener);

} // namespace kelvarin
