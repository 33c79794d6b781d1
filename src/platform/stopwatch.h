// SPDX-License-Identifier: MIT
#pragma once

#include <functional>

namespace kelvarin
{

/// A function that returns seconds, with fractions, since some fixed moment.
using stopwatch = std::function<double()>;

/// The computer's steady clock.
double steady_seconds();

} // namespace kelvarin
