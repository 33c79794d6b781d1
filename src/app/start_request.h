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

/// The request of the program's arguments.
struct start_request
{
    /// A tool to open alone, with the main window hidden.
    std::optional<window_command> tool;
    std::vector<std::filesystem::path> documents;

    friend bool operator==(const start_request&, const start_request&) = default;
};

/// What the program says on the terminal instead of opening a window.
struct terminal_answer
{
    int status = 0;
    std::string text;

    friend bool operator==(const terminal_answer&, const terminal_answer&) = default;
};

/// The answer to "-h", "--help" or "--version", and to a word in front of "--" that begins with "--" and is neither a
/// file nor an option of the toolkit. Returns nullopt if there is a window to be opened.
std::optional<terminal_answer> answer_on_terminal(const std::vector<std::string>& arguments);

/// Reads the arguments after the program's name. The first "--" is left out, whatever follows it. One of the words
/// "calc", "units", "const" and "ant", alone and in exactly this form, names a tool; everything else is a list of
/// documents, from which enclosing quotes are removed.
start_request read_arguments(const std::vector<std::string>& arguments);

/// The environment variables that concern the display; nullopt for one that is not set.
struct screen_variables
{
    std::optional<std::string> platform;
    std::optional<std::string> display;
    std::optional<std::string> wayland_display;
};

screen_variables screen_of_environment();

/// Whether the environment has a display. Without one the toolkit would end the process.
bool has_screen(const screen_variables& variables);

} // namespace kelvarin
