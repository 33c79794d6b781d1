// SPDX-License-Identifier: MIT
#pragma once

#include "batch/batch_surroundings.h"

#include <ostream>
#include <span>
#include <string>

namespace kelvarin
{

/// The whole program behind its arguments: reads them, works, prints. Returns the exit status.
int run_batch(std::span<const std::string> arguments, std::ostream& out, std::ostream& err,
              const batch_surroundings& surroundings);

} // namespace kelvarin
