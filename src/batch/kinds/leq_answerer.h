// SPDX-License-Identifier: MIT
#pragma once

#include "batch/kinds/kind_answerer.h"

namespace kelvarin
{

/// The answerer of linear equations.
kind_answerer leq_answerer();

} // namespace kelvarin
