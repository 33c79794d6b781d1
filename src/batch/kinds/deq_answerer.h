// SPDX-License-Identifier: MIT
#pragma once

#include "batch/kinds/kind_answerer.h"

namespace kelvarin
{

/// The answerer of differential problems.
kind_answerer deq_answerer();

} // namespace kelvarin
