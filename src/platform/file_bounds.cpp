// SPDX-License-Identifier: MIT
#include "platform/file_bounds.h"

#include "platform/text_file.h"

namespace kelvarin
{

std::optional<std::string> excess_of(std::string_view text, const file_bounds& bounds)
{
    constexpr std::size_t megabyte = std::size_t{1} << 20;
    if (text.size() > bounds.megabytes * megabyte)
        return "it is larger than " + std::to_string(bounds.megabytes) + " MB";
    std::size_t lines = 0;
    while (!text.empty()) {
        take_line(text);
        if (++lines > bounds.lines) return "it has more than " + std::to_string(bounds.lines) + " lines";
    }
    return std::nullopt;
}

} // namespace kelvarin
