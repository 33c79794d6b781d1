// SPDX-License-Identifier: MIT
#include "batch/progress_line.h"

namespace kelvarin
{

namespace
{

constexpr std::chrono::milliseconds quiet_time{1000};
constexpr std::chrono::milliseconds time_between{200};
/// Returns to the first column and clears the line.
constexpr const char* wipe = "\r\x1b[K";

} // namespace

progress_line::progress_line(run_listener& program, std::ostream* terminal, std::string label,
                             std::function<time_point()> now)
    : program_(program), terminal_(terminal), label_(std::move(label)), now_(std::move(now)), next_(now_() + quiet_time)
{
}

progress_line::~progress_line()
{
    if (shown_) *terminal_ << wipe << std::flush;
}

void progress_line::fraction_done(double fraction)
{
    program_.fraction_done(fraction);
    if (terminal_ == nullptr) return;
    const time_point present = now_();
    if (present <= next_) return;
    next_ = present + time_between;
    shown_ = true;
    *terminal_ << wipe << label_ << "  " << static_cast<int>(100 * fraction) << " %" << std::flush;
}

} // namespace kelvarin
