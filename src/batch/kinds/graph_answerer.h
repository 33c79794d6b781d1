// SPDX-License-Identifier: MIT
#pragma once

#include "batch/kinds/kind_answerer.h"

namespace kelvarin
{

/// The answerer of graph files: it edits, saves and draws them.
kind_answerer graph_answerer();

} // namespace kelvarin
