// SPDX-License-Identifier: MIT
#pragma once

#include <atomic>
#include <exception>

namespace kelvarin
{

/// A run's only link to its caller: it reports the fraction done and asks whether to stop. Both may be used from
/// another thread than the run's.
class run_listener
{
public:
    virtual ~run_listener() = default;

    /// `fraction` from 0 to 1.
    virtual void fraction_done(double fraction) = 0;
    virtual bool stop_asked() const = 0;
};

/// Thrown inside a run whose listener asks it to stop; the outcome records it.
class run_stopped : public std::exception
{
public:
    const char* what() const noexcept override { return "run stopped"; }
};

/// Stores the fraction and a request to stop; the implementation for programs and tests.
class recording_listener : public run_listener
{
public:
    void fraction_done(double fraction) override { fraction_.store(fraction, std::memory_order_relaxed); }
    bool stop_asked() const override { return stop_.load(std::memory_order_relaxed); }

    double fraction() const { return fraction_.load(std::memory_order_relaxed); }
    void ask_to_stop() { stop_.store(true, std::memory_order_relaxed); }

private:
    std::atomic<double> fraction_ = 0.0;
    std::atomic<bool> stop_ = false;
};

} // namespace kelvarin
