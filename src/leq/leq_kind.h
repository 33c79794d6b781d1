// SPDX-License-Identifier: MIT
#pragma once

#include "shell/document/problem_kind.h"

namespace kelvarin
{

/// The row of linear equations in the list of kinds.
const problem_kind& leq_kind();

} // namespace kelvarin
