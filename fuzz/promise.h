// SPDX-License-Identifier: MIT
#pragma once

#include <cstdio>
#include <cstdlib>

namespace kelvarin::fuzz
{

/// Ends the program, so that the fuzzer keeps the input, where what must hold does not.
inline void promise(bool holds, const char* what)
{
    if (holds) return;
    std::fprintf(stderr, "Broken promise: %s\n", what);
    std::abort();
}

} // namespace kelvarin::fuzz
