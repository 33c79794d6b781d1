// SPDX-License-Identifier: MIT
#include "platform/clock.h"

#include <chrono>
#include <ctime>

namespace kelvarin
{

calendar_date system_clock::today() const
{
    const std::time_t now = std::time(nullptr);
    std::tm local{};
    ::localtime_r(&now, &local);
    return {local.tm_year + 1900, local.tm_mon + 1, local.tm_mday};
}

std::int64_t system_clock::whole_seconds() const
{
    // steady_clock: a change of the computer's clock must not affect measured times.
    const auto since_start = std::chrono::steady_clock::now().time_since_epoch();
    return std::chrono::duration_cast<std::chrono::seconds>(since_start).count();
}

} // namespace kelvarin
