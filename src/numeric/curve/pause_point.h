// SPDX-License-Identifier: MIT
#pragma once

#include <functional>

namespace kelvarin
{

/// Called now and then by a routine whose time grows with the square of its points. It may throw, which ends the
/// routine.
using pause_point = std::function<void()>;

} // namespace kelvarin
