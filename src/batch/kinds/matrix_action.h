// SPDX-License-Identifier: MIT
#pragma once

#include "batch/kinds/table_action.h"

#include <span>

namespace kelvarin
{

/// --matrix with the two selections.
std::span<const kind_option> matrix_options();
table_action matrix_action();

} // namespace kelvarin
