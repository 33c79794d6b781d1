// SPDX-License-Identifier: MIT
#pragma once

#include "shell/document/problem_kind.h"

namespace kelvarin
{

/// The row of data tables and regressions in the list of kinds.
const problem_kind& reg_kind();

} // namespace kelvarin
