// SPDX-License-Identifier: MIT
#pragma once

#include "shell/document/problem_kind.h"

namespace kelvarin
{

/// The row of optimization problems in the list of kinds.
const problem_kind& opt_kind();

} // namespace kelvarin
