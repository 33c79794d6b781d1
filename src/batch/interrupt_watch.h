// SPDX-License-Identifier: MIT
#pragma once

#include "platform/run_listener.h"

#include <atomic>
#include <csignal>
#include <thread>

namespace kelvarin
{

/// While this object exists, Ctrl+C asks a run to stop instead of ending the program. To be created before other
/// threads are started: the signal is blocked in the calling thread, and one thread waits for it. If the program was
/// started with the signal ignored, it stays ignored.
class interrupt_watch
{
public:
    explicit interrupt_watch(recording_listener& listener);
    interrupt_watch(const interrupt_watch&) = delete;
    interrupt_watch& operator=(const interrupt_watch&) = delete;
    ~interrupt_watch();

private:
    std::atomic<bool> over_ = false;
    sigset_t mask_before_ = {};
    std::thread waiting_;
};

} // namespace kelvarin
