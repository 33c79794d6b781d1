// SPDX-License-Identifier: MIT
#pragma once

#include "platform/message_box.h"
#include "platform/run_listener.h"
#include "platform/runtime_failure.h"

#include <new>
#include <utility>
#include <vector>

namespace kelvarin
{

/// The common part of the outcomes of all kinds of runs; each kind adds its numbers. Report, JSON, table and graph are
/// functions of the outcome, the problem and the date.
struct run_outcome
{
    /// Whether a report is to be made; if not, the boxes say why.
    bool has_report = false;
    /// Whether the run ended because the listener asked for it.
    bool stopped = false;
    /// The boxes to show, in this order.
    std::vector<message_box> boxes;
    /// Seconds of the computation alone.
    double elapsed_seconds = 0.0;

    /// Adds the box of a run that ends without a report.
    void refuse(message_box box)
    {
        has_report = false;
        boxes.push_back(std::move(box));
    }
};

/// The boxes of a kind for a failed and for a stopped run.
struct run_ending_boxes
{
    message_box (*failed)(const runtime_failure& failure);
    message_box stopped;
};

/// Calls `run` and converts what it throws into the kind's box: runtime_failure, std::bad_alloc (as runtime_failure 7),
/// and run_stopped. Other exceptions are programming errors and are not caught.
template <class Run> void guard_run(run_outcome& outcome, const run_ending_boxes& boxes, Run run)
{
    try {
        run();
    } catch (const run_stopped&) {
        outcome.stopped = true;
        outcome.refuse(boxes.stopped);
    } catch (const runtime_failure& failure) {
        outcome.refuse(boxes.failed(failure));
    } catch (const std::bad_alloc&) {
        outcome.refuse(boxes.failed(runtime_failure(failure_number::out_of_memory)));
    }
}

} // namespace kelvarin
