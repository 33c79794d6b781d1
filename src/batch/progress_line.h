// SPDX-License-Identifier: MIT
#pragma once

#include "platform/run_listener.h"

#include <chrono>
#include <functional>
#include <ostream>
#include <string>

namespace kelvarin
{

/// Shows the progress of a run on a terminal once it takes longer than a second, in one line that is cleared at the
/// end, and forwards all calls to the program's listener.
class progress_line final : public run_listener
{
public:
    using time_point = std::chrono::steady_clock::time_point;

    /// `terminal` is null if the output is not a terminal.
    progress_line(run_listener& program, std::ostream* terminal, std::string label,
                  std::function<time_point()> now = std::chrono::steady_clock::now);
    progress_line(const progress_line&) = delete;
    progress_line& operator=(const progress_line&) = delete;
    ~progress_line() override;

    void fraction_done(double fraction) override;
    bool stop_asked() const override { return program_.stop_asked(); }

private:
    run_listener& program_;
    std::ostream* terminal_;
    std::string label_;
    std::function<time_point()> now_;
    time_point next_;
    bool shown_ = false;
};

} // namespace kelvarin
