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

/// What the runs of all kinds of problem end with; each kind adds its numbers. Report, JSON, table and graph are
/// functions of the outcome, the problem and the date.
struct run_outcome
{
    /// A report is to be made; otherwise the boxes say why not.
    bool has_report = false;
    /// The listener asked the run to stop.
    bool stopped = false;
    /// What is shown to the user, in this order.
    std::vector<message_box> boxes;
    /// Of the computation alone.
    double elapsed_seconds = 0.0;

    /// Ends the run without a report.
    void refuse(message_box box)
    {
        has_report = false;
        boxes.push_back(std::move(box));
    }
};

/// The boxes in which a kind says that its run failed or was stopped.
struct run_ending_boxes
{
    message_box (*failed)(const runtime_failure& failure);
    message_box stopped;
};

/// Calls `run`, and turns whatever it throws into the kind's box: runtime_failure, a lack of memory (as runtime_failure
/// 7), and run_stopped. Nothing else is caught: it would be a mistake in the program.
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
