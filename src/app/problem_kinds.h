// SPDX-License-Identifier: MIT
#pragma once

#include "desktop/commands.h"
#include "desktop/problem_window.h"
#include "shell/document/recognition.h"

#include <memory>
#include <optional>
#include <span>
#include <string_view>

namespace kelvarin
{

/// A kind of problem window. A kind without `make` can not be opened yet; `missing_text` says so.
struct problem_window_kind
{
    /// "nle": the toolbar's key, the icon, and the kind in recovery files.
    const char* key = "";
    window_command fresh{};
    /// The kind by which its files are recognised, if they are.
    std::optional<document_kind> document;
    const char* window_name = "";
    const char* caption = "";
    const char* recent_suffix = "";
    const char* missing_text = "";
    std::unique_ptr<problem_window> (*make)(desktop_context&) = nullptr;
};

/// All kinds, in the order of toolbar and menus.
std::span<const problem_window_kind> problem_window_kinds();

/// The kind that something belongs to; null where none does.
const problem_window_kind* kind_of_command(window_command which);
const problem_window_kind* kind_of_document(document_kind document);
const problem_window_kind* kind_of_key(std::string_view key);

} // namespace kelvarin
