// SPDX-License-Identifier: MIT
#pragma once

#include "leq/leq_content.h"

#include <cstdint>

namespace kelvarin
{

/// A random problem with 3 to 6 equations: small whole coefficients, one per row larger than the sum of the others, and
/// a solution of whole numbers. The same seed gives the same problem on every machine.
leq_content sample_leq(std::uint32_t seed);

} // namespace kelvarin
