// SPDX-License-Identifier: MIT
#pragma once

#include "nle/nle_run.h"
#include "nle/nle_system.h"

namespace kelvarin
{

/// Searches for all roots of one equation between the problem's bounds. The equations must be compiled.
void run_nle_single(const nle_content& content, nle_system& system, const settings& store, const wall_clock& clock,
                    run_listener& listener, nle_outcome& outcome);

} // namespace kelvarin
