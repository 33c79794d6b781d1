// SPDX-License-Identifier: MIT
#include "app/start_request.h"

#include "shell/report/rich_text.h"

#include <algorithm>
#include <array>
#include <cstdlib>
#include <utility>

namespace kelvarin
{

namespace
{

constexpr std::array<std::pair<std::string_view, window_command>, 4> tool_words{{{"calc", window_command::calculator},
                                                                                 {"units", window_command::units},
                                                                                 {"const", window_command::constants},
                                                                                 {"ant", window_command::antoine}}};

constexpr std::string_view usage =
    "usage: kelvarin [FILE...]\n"
    "       kelvarin calc|units|const|ant\n"
    "       kelvarin --export PICTURE GRAPH.kvg\n"
    "Opens files, or one of the tools alone. Behind -- every word is a file.\n"
    "--export draws a graph as .svg, .pdf, .png or .bmp, with no window and no display.\n"
    "kelvarin-solve works without windows.\n";

/// Options of the toolkit that it also takes with two dashes; it removes them itself.
constexpr std::array<std::string_view, 12> toolkit_options{
    {"--platform", "--platformpluginpath", "--platformtheme", "--plugin", "--qwindowgeometry", "--qwindowicon",
     "--qwindowtitle", "--reverse", "--session", "--display", "--style", "--stylesheet"}};

bool is_toolkit_option(std::string_view word)
{
    const std::string_view name = word.substr(0, word.find('='));
    return std::ranges::find(toolkit_options, name) != toolkit_options.end();
}

bool is_file(const std::string& word)
{
    std::error_code unknown;
    return std::filesystem::exists(word, unknown);
}

std::string_view without_quotes(std::string_view text)
{
    const bool quoted = text.size() >= 2 && text.front() == '"' && text.back() == '"';
    return quoted ? text.substr(1, text.size() - 2) : text;
}

std::optional<std::string> environment_variable(const char* name)
{
    const char* value = std::getenv(name);
    if (value == nullptr || *value == '\0') return std::nullopt;
    return value;
}

} // namespace

std::optional<terminal_answer> answer_on_terminal(const std::vector<std::string>& arguments)
{
    for (const std::string& word : arguments) {
        if (word == "--") break;
        if (is_file(word)) continue;
        if (word == "-h" || word == "--help") return terminal_answer{0, std::string(usage)};
        if (word == "--version") return terminal_answer{0, "kelvarin " + std::string(program_version()) + "\n"};
        if (word.starts_with("--") && !is_toolkit_option(word))
            return terminal_answer{2, "kelvarin: there is no option '" + word + "'.\n" + std::string(usage)};
    }
    return std::nullopt;
}

start_request read_arguments(const std::vector<std::string>& arguments)
{
    start_request request;
    if (arguments.size() == 1)
        for (const auto& [word, tool] : tool_words)
            if (arguments.front() == word) {
                request.tool = tool;
                return request;
            }
    bool options_ended = false;
    for (const std::string& argument : arguments) {
        if (!options_ended && argument == "--") {
            options_ended = true;
            continue;
        }
        if (const std::string_view path = without_quotes(argument); !path.empty()) request.documents.emplace_back(path);
    }
    return request;
}

screen_variables screen_of_environment()
{
    return {environment_variable("QT_QPA_PLATFORM"), environment_variable("DISPLAY"),
            environment_variable("WAYLAND_DISPLAY")};
}

bool has_screen(const screen_variables& variables)
{
    if (variables.display || variables.wayland_display) return true;
    // Platforms other than X11 and Wayland don't need a display.
    return variables.platform && !variables.platform->starts_with("xcb") && !variables.platform->starts_with("wayland");
}

} // namespace kelvarin
