// SPDX-License-Identifier: MIT
#pragma once

namespace kelvarin
{

/// The sign condition of an unknown.
enum class sign_constraint
{
    any = 0,
    physically_positive = 1,
    absolutely_positive = 2
};

} // namespace kelvarin
