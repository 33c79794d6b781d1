// SPDX-License-Identifier: MIT
#pragma once

#include "batch/kinds/kind_answerer.h"

namespace kelvarin
{

/// The answerer of optimization problems.
kind_answerer opt_answerer();

} // namespace kelvarin
