// SPDX-License-Identifier: MIT
#pragma once

#include "batch/command_line.h"
#include "platform/clock.h"
#include "platform/registry_store.h"
#include "platform/run_listener.h"
#include "platform/stopwatch.h"

#include <ostream>
#include <span>
#include <string>

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
    /// For times that are told with fractions of a second.
    stopwatch seconds = steady_seconds;
};

/// What one file gave. It is made without printing anything, so that files can be answered in any order.
struct file_answer
{
    /// The text of its JSON object, where JSON is asked for; of one among several at a depth of 1.
    std::string object = {};
    /// The report in the format asked for, text or rtf; empty where there is none.
    std::string report = {};
    /// For standard error.
    std::string messages = {};
    int status = 0;
    bool stopped = false;
};

/// `listener` is that of this file.
file_answer solve_file(const std::string& file, const batch_request& request, const batch_surroundings& surroundings,
                       run_listener& listener);
file_answer check_file(const std::string& file, const batch_request& request);

/// A box as lines: its title and the file, where there is one, then its text.
std::string message_lines(const std::string& file, const message_box& box);

/// The whole program behind its arguments: reads them, works, prints. Returns the exit status.
int run_batch(std::span<const std::string> arguments, std::ostream& out, std::ostream& err,
              const batch_surroundings& surroundings);

} // namespace kelvarin
