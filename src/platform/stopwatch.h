// SPDX-License-Identifier: MIT
#pragma once

#include <functional>

namespace kelvarin
{

/// A reading of a watch: seconds, with fractions, since some fixed moment.
using stopwatch = std::function<double()>;

/// The computer's steady watch, which nobody sets.
double steady_seconds();

} // namespace kelvarin
