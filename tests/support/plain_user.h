// SPDX-License-Identifier: MIT
#pragma once

#include <functional>

#include <sys/types.h>
#include <sys/wait.h>
#include <unistd.h>

namespace kelvarin::test
{

/// An account without any rights.
inline constexpr uid_t nobody = 65534;

/// Whether `holds` holds for a person who is not the system's administrator: for root, who may do everything, it is
/// asked in a process of that account, and what it does to variables is lost.
inline bool holds_for_plain_user(const std::function<bool()>& holds)
{
    if (::geteuid() != 0) return holds();
    const pid_t child = ::fork();
    if (child == 0) {
        const bool dropped = ::setgid(nobody) == 0 && ::setuid(nobody) == 0;
        ::_exit(dropped && holds() ? 0 : 1);
    }
    int status = 1;
    return child > 0 && ::waitpid(child, &status, 0) == child && WIFEXITED(status) && WEXITSTATUS(status) == 0;
}

} // namespace kelvarin::test
