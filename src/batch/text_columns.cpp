// SPDX-License-Identifier: MIT
#include "batch/text_columns.h"

#include <algorithm>
#include <cstddef>

namespace kelvarin
{

std::string text_columns(const std::vector<std::vector<std::string>>& lines)
{
    constexpr std::size_t distance = 2;
    std::vector<std::size_t> widths;
    for (const std::vector<std::string>& line : lines) {
        widths.resize(std::max(widths.size(), line.size()));
        for (std::size_t i = 0; i < line.size(); ++i)
            widths[i] = std::max(widths[i], line[i].size());
    }
    std::string text;
    for (const std::vector<std::string>& line : lines) {
        std::string padded;
        for (std::size_t i = 0; i < line.size(); ++i)
            padded += line[i] + std::string(widths[i] - line[i].size() + distance, ' ');
        padded.erase(padded.find_last_not_of(' ') + 1);
        text += padded + "\n";
    }
    return text;
}

} // namespace kelvarin
