// SPDX-License-Identifier: MIT
#include "batch/interrupt_watch.h"

#include <system_error>

namespace kelvarin
{

namespace
{

/// Shells start background programs of scripts with the signal ignored.
bool is_ignored(int signal_number)
{
    struct sigaction present = {};
    return sigaction(signal_number, nullptr, &present) == 0 && present.sa_handler == SIG_IGN;
}

} // namespace

interrupt_watch::interrupt_watch(recording_listener& listener)
{
    if (is_ignored(SIGINT)) return;
    sigset_t interrupt;
    sigemptyset(&interrupt);
    sigaddset(&interrupt, SIGINT);
    pthread_sigmask(SIG_BLOCK, &interrupt, &mask_before_);
    try {
        waiting_ = std::thread([this, &listener, interrupt] {
            int signal_number = 0;
            while (sigwait(&interrupt, &signal_number) == 0 && !over_)
                listener.ask_to_stop();
        });
    } catch (const std::system_error&) {
        // The system allows no thread for it: the signal ends the program at once.
        pthread_sigmask(SIG_SETMASK, &mask_before_, nullptr);
    }
}

interrupt_watch::~interrupt_watch()
{
    if (!waiting_.joinable()) return;
    over_ = true;
    pthread_kill(waiting_.native_handle(), SIGINT);
    waiting_.join();
    pthread_sigmask(SIG_SETMASK, &mask_before_, nullptr);
}

} // namespace kelvarin
