// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace kelvarin::test
{

/// A report with a line end behind every line of it, as the golden files have it to be read by people.
inline std::string by_lines(const std::string& report)
{
    static constexpr std::string_view end = R"(\par )";
    std::string lines;
    std::size_t from = 0;
    for (std::size_t at = report.find(end); at != std::string::npos; at = report.find(end, from)) {
        lines.append(report, from, at + end.size() - from).append("\n");
        from = at + end.size();
    }
    return lines.append(report, from).append("\n");
}

} // namespace kelvarin::test
