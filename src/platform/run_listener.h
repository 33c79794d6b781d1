// SPDX-License-Identifier: MIT
#pragma once

#include <atomic>
#include <exception>

namespace kelvarin
{

/// A run's only link to its surroundings: how far it is goes out, the wish to stop comes in. Both may be
/// used from another thread than the run's.
class run_listener
{
public:
    virtual ~run_listener() = default;

    /// `fraction` from 0 to 1.
    virtual void fraction_done(double fraction) = 0;
    virtual bool stop_asked() const = 0;
};

/// Thrown inside a run whose listener asked it to stop; the run's outcome says so.
class run_stopped : public std::exception
{
public:
    const char* what() const noexcept override { return "run stopped"; }
};

/// Keeps the fraction and can be asked to stop; the plain implementation for programs and tests.
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
