// SPDX-License-Identifier: MIT
#pragma once

#include "leq/leq_content.h"

#include <cstdint>

namespace kelvarin
{

/// The sample problem "Sample random problem": 3 to 6 equations with small whole coefficients, each with one
/// that outweighs the others of its row, and a solution of whole numbers. The same seed gives the same
/// problem, whatever the machine.
leq_content sample_leq(std::uint32_t seed);

} // namespace kelvarin
