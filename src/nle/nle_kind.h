// SPDX-License-Identifier: MIT
#pragma once

#include "shell/document/problem_kind.h"

namespace kelvarin
{

/// The row of nonlinear problems in the list of kinds.
const problem_kind& nle_kind();

} // namespace kelvarin
