// SPDX-License-Identifier: MIT
#pragma once

#include "promise.h"

#include <string>

namespace kelvarin::fuzz
{

/// Promises that a saved problem can be read, stays the same from then on, and is written the same twice. Returns what
/// was read.
template <class Content, class Write, class Read> Content check_saving(const Content& content, Write write, Read read)
{
    const std::string written = write(content);
    const auto again = read(written);
    promise(again.has_value(), "what was written can be read");
    const std::string twice = write(*again);
    promise(read(twice) == again, "a saved problem comes back the same");
    promise(twice == written, "saving twice writes the same");
    return *again;
}

} // namespace kelvarin::fuzz
