// SPDX-License-Identifier: MIT
#pragma once

#include "batch/kinds/kind_answerer.h"

namespace kelvarin
{

/// Answers data tables.
kind_answerer reg_answerer();

} // namespace kelvarin
