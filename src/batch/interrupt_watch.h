// SPDX-License-Identifier: MIT
#pragma once

#include "platform/run_listener.h"

#include <atomic>
#include <thread>

namespace kelvarin
{

/// While it lives, Ctrl+C asks a run to stop in place of ending the program. Made before other threads are
/// started: the signal is blocked in the calling thread, and one thread waits for it.
class interrupt_watch
{
public:
    explicit interrupt_watch(recording_listener& listener);
    interrupt_watch(const interrupt_watch&) = delete;
    interrupt_watch& operator=(const interrupt_watch&) = delete;
    ~interrupt_watch();

private:
    std::atomic<bool> over_ = false;
    std::thread waiting_;
};

} // namespace kelvarin
