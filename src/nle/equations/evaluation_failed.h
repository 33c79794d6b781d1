// SPDX-License-Identifier: MIT
#pragma once

#include <exception>

namespace kelvarin
{

/// Thrown through a numerical method if an expression of its system can't be evaluated; the system's context has the
/// message.
class evaluation_failed : public std::exception
{
public:
    const char* what() const noexcept override { return "evaluation failed"; }
};

} // namespace kelvarin
