// SPDX-License-Identifier: MIT
#pragma once

#include "platform/clock.h"
#include "platform/registry_store.h"
#include "platform/run_listener.h"
#include "platform/stopwatch.h"

namespace kelvarin
{

/// What the batch program takes from outside.
struct batch_surroundings
{
    const wall_clock& clock;
    /// The user's settings; read only.
    const registry_store& saved;
    run_listener& listener;
    /// Somebody watches the error output.
    bool err_is_terminal = false;
    /// For elapsed times in fractions of a second.
    stopwatch seconds = steady_seconds;
};

} // namespace kelvarin
