// SPDX-License-Identifier: MIT
#pragma once

#include "shell/document/problem_kind.h"

namespace kelvarin
{

/// The kind of graphs, which are documents but no problems: it is not among the kinds of problem.
const problem_kind& graph_kind();

} // namespace kelvarin
