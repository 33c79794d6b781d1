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

/// A kind of problem as the main window has it: its row, its command and its windows.
struct problem_window_kind
{
    const problem_kind* row = nullptr;
    /// The command of the menus that makes a new problem.
    window_command fresh{};
    /// Null of a kind that can not be opened yet.
    std::unique_ptr<problem_window> (*make)(desktop_context&) = nullptr;
};

/// All kinds, in the order of toolbar and menus.
std::span<const problem_window_kind> problem_window_kinds();

/// The kind that something belongs to; null where there is none.
const problem_window_kind* kind_of_command(window_command which);
const problem_window_kind* kind_of_row(const problem_kind* row);
const problem_window_kind* kind_of_key(std::string_view key);

} // namespace kelvarin
