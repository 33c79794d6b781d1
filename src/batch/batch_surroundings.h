// SPDX-License-Identifier: MIT
#pragma once

#include "platform/clock.h"
#include "platform/registry_store.h"
#include "platform/run_listener.h"
#include "platform/stopwatch.h"

namespace kelvarin
{

/// The environment of the batch program.
struct batch_surroundings
{
    const wall_clock& clock;
    /// The user's settings; read only.
    const registry_store& saved;
    run_listener& listener;
    /// Whether the error output is a terminal.
    bool err_is_terminal = false;
    /// The clock for elapsed times in fractions of a second.
    stopwatch seconds = steady_seconds;
};

} // namespace kelvarin
