// SPDX-License-Identifier: MIT
#pragma once

#include "shell/document/problem_kind.h"

#include <span>
#include <string_view>

namespace kelvarin
{

/// All kinds of problem, in the order of toolbar and menus. A file belongs to the first kind that recognises it.
std::span<const problem_kind* const> problem_kinds();

/// Those whose files the main window opens, in the same order.
std::span<const problem_kind* const> kinds_of_main_window();

/// The kind with this key; null if there is none.
const problem_kind* problem_kind_of(std::string_view key);

} // namespace kelvarin
