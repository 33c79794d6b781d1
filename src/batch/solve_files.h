// SPDX-License-Identifier: MIT
#pragma once

#include "batch/batch_surroundings.h"
#include "batch/command_line.h"
#include "batch/file_answer.h"

#include <string>

namespace kelvarin
{

/// Solves a file as the request asks. `listener` is that of this file.
file_answer solve_file(const std::string& file, const batch_request& request, const batch_surroundings& surroundings,
                       run_listener& listener);

/// Says what is defined in a file and what is missing, as JSON.
file_answer check_file(const std::string& file, const batch_request& request);

} // namespace kelvarin
