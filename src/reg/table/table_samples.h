// SPDX-License-Identifier: MIT
#pragma once

#include "reg/table/table_content.h"

#include <cstdint>
#include <string>
#include <vector>

namespace kelvarin
{

/// The titles of the examples in the order of their menu.
std::vector<std::string> table_sample_titles();

/// An example, from 0, as it replaces `current`. `seed` chooses the numbers of the random data, which are example 0.
/// The values of the vapour pressures and of the cement are published; of the heat capacities only the first row is
/// vouched for, the others illustrate the shape of the curve.
table_content table_sample(int index, const table_content& current, std::uint32_t seed);

} // namespace kelvarin
