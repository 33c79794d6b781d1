// SPDX-License-Identifier: MIT
#pragma once

#include "batch/kinds/table_action.h"

#include <span>
#include <string_view>

namespace kelvarin
{

/// Whether a nonlinear regression has a method of this text or number.
bool is_regression_method(std::string_view value);

/// --regress with all that its pages ask for.
std::span<const kind_option> regression_options();
table_action regression_action();

} // namespace kelvarin
