// SPDX-License-Identifier: MIT
#pragma once

#include "shell/document/problem_kind.h"

#include <span>
#include <string_view>

namespace kelvarin
{

/// All kinds of problem, in the order of toolbar and menus. A file belongs to the first kind that recognises it.
std::span<const problem_kind* const> problem_kinds();

/// The kind with this key; null if there is none.
const problem_kind* problem_kind_of(std::string_view key);

} // namespace kelvarin
