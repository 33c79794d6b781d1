// SPDX-License-Identifier: MIT
#pragma once

#include "batch/kinds/kind_answerer.h"

namespace kelvarin
{

/// The answerer of nonlinear problems.
kind_answerer nle_answerer();

} // namespace kelvarin
