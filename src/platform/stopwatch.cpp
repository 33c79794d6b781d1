// SPDX-License-Identifier: MIT
#include "platform/stopwatch.h"

#include <chrono>

namespace kelvarin
{

double steady_seconds()
{
    return std::chrono::duration<double>(std::chrono::steady_clock::now().time_since_epoch()).count();
}

} // namespace kelvarin
