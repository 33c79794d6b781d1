// SPDX-License-Identifier: MIT
#pragma once

#include <cerrno>

namespace kelvarin
{

/// Repeats a system call that was interrupted by a signal.
template <class Call> auto uninterrupted(Call call)
{
    auto result = call();
    while (result < 0 && errno == EINTR)
        result = call();
    return result;
}

} // namespace kelvarin
