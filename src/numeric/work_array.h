// SPDX-License-Identifier: MIT
#pragma once

#include "numeric/linear/matrix.h"

#include <limits>
#include <vector>

namespace kelvarin
{

/// What an entry of a work array holds before it is set. In checked builds it is not a number, so that an
/// entry read too early makes the method fail instead of passing as 0.
#ifdef KELVARIN_CHECKED
inline constexpr double unset = std::numeric_limits<double>::quiet_NaN();
#else
inline constexpr double unset = 0.0;
#endif

inline std::vector<double> work_array(int size)
{
    return std::vector<double>(static_cast<std::size_t>(size), unset);
}

inline matrix work_matrix(int size)
{
    return {size, size, unset};
}

} // namespace kelvarin
