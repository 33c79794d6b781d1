// SPDX-License-Identifier: MIT
#pragma once

#include "shell/document/problem_kind.h"

namespace kelvarin
{

/// The row of differential equations in the list of kinds.
const problem_kind& deq_kind();

} // namespace kelvarin
