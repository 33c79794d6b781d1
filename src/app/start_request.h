// SPDX-License-Identifier: MIT
#pragma once

#include "desktop/commands.h"

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace kelvarin
{

/// What the program was started for.
struct start_request
{
    /// A tool that opens alone, the main window staying hidden.
    std::optional<window_command> tool;
    std::vector<std::filesystem::path> documents;

    friend bool operator==(const start_request&, const start_request&) = default;
};

/// Reads the arguments behind the program's name. One of the words "calc", "units", "const" and "ant", alone and
/// exactly so written, names a tool; all else are documents, with quotes around them taken off.
start_request read_arguments(const std::vector<std::string>& arguments);

/// What the environment says about a screen; nothing where a variable is not set.
struct screen_variables
{
    std::optional<std::string> platform;
    std::optional<std::string> display;
    std::optional<std::string> wayland_display;
};

screen_variables screen_of_environment();

/// Whether a window can be expected to open. The toolkit itself ends the process where it can not.
bool has_screen(const screen_variables& variables);

} // namespace kelvarin
