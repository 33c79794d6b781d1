// SPDX-License-Identifier: MIT
#pragma once

#include "platform/runtime_failure.h"

#include <string>

namespace kelvarin::test
{

/// What a call failed with: number and detail, "8888 NEWT: ...", the number alone where there is no detail,
/// "none" where it did not fail.
template <typename Call> std::string failure_of(Call call)
{
    try {
        call();
    } catch (const runtime_failure& failure) {
        return std::to_string(failure.number()) + (failure.detail().empty() ? "" : " " + failure.detail());
    }
    return "none";
}

} // namespace kelvarin::test
