// SPDX-License-Identifier: MIT
#pragma once

#include <string>

namespace kelvarin
{

/// The value of a variable in a solution.
struct solved_value
{
    std::string name;
    double value = 0.0;
};

} // namespace kelvarin
