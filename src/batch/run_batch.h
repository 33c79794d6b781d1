// SPDX-License-Identifier: MIT
#pragma once

#include "batch/batch_surroundings.h"

#include <ostream>
#include <span>
#include <string>

namespace kelvarin
{

/// Runs the program: parses the arguments, works, prints. Returns the exit status.
int run_batch(std::span<const std::string> arguments, std::ostream& out, std::ostream& err,
              const batch_surroundings& surroundings);

} // namespace kelvarin
