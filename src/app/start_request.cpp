// SPDX-License-Identifier: MIT
#include "app/start_request.h"

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

start_request read_arguments(const std::vector<std::string>& arguments)
{
    start_request request;
    if (arguments.size() == 1)
        for (const auto& [word, tool] : tool_words)
            if (arguments.front() == word) {
                request.tool = tool;
                return request;
            }
    for (const std::string& argument : arguments)
        if (const std::string_view path = without_quotes(argument); !path.empty()) request.documents.emplace_back(path);
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
