// SPDX-License-Identifier: MIT
#pragma once

#include "desktop/commands.h"
#include "desktop/problem_window.h"
#include "shell/document/problem_kind.h"

#include <memory>
#include <span>
#include <string_view>

namespace kelvarin
{

/// A kind of problem for the main window: its row, its command and its windows.
struct problem_window_kind
{
    const problem_kind* row = nullptr;
    /// The command that makes a new problem.
    window_command fresh{};
    /// Makes a window; null for a kind that is not available yet.
    std::unique_ptr<problem_window> (*make)(desktop_context&) = nullptr;
};

/// All kinds, in the order of toolbar and menus.
std::span<const problem_window_kind> problem_window_kinds();

/// The kind of a command or row, or with a key; null if there is none.
const problem_window_kind* kind_of_command(window_command which);
const problem_window_kind* kind_of_row(const problem_kind* row);
const problem_window_kind* kind_of_key(std::string_view key);

} // namespace kelvarin
