// SPDX-License-Identifier: MIT
#pragma once

#include "platform/run_listener.h"

#include <QString>

#include <functional>
#include <memory>
#include <optional>
#include <type_traits>
#include <utility>

class QWidget;

namespace kelvarin
{

/// Does `work` in a thread of its own while the caller waits. If that takes longer than a tenth of a second, a box with
/// `text` and Stop is shown meanwhile, and windows go on being painted. Returns false if it was stopped: the work may
/// then go on for a while, so it must own what it uses. What the work throws is thrown here.
bool wait_for_work(QWidget* parent, const QString& text, std::function<void(run_listener&)> work);

/// The outcome of `job(listener)`, done by wait_for_work; nullopt if it was stopped.
template <class Job>
std::optional<std::invoke_result_t<Job, run_listener&>> wait_for(QWidget* parent, const QString& text, Job job)
{
    auto outcome = std::make_shared<std::optional<std::invoke_result_t<Job, run_listener&>>>();
    const bool ended = wait_for_work(
        parent, text, [job = std::move(job), outcome](run_listener& listener) { *outcome = job(listener); });
    if (!ended) return std::nullopt;
    return std::move(*outcome);
}

} // namespace kelvarin
