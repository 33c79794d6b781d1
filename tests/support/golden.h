// SPDX-License-Identifier: MIT
#pragma once

#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <string_view>

namespace kelvarin::test
{

/// Compares a text byte for byte with the file `name` under tests/golden. With the environment variable
/// KELVARIN_UPDATE_GOLDEN set, the file is written anew instead: read the difference before committing it.
inline void expect_golden(const std::string& name, std::string_view actual)
{
    const std::filesystem::path path = std::filesystem::path(KELVARIN_GOLDEN) / name;
    if (std::getenv("KELVARIN_UPDATE_GOLDEN") != nullptr) {
        std::filesystem::create_directories(path.parent_path());
        std::ofstream(path, std::ios::binary) << actual;
        return;
    }
    std::ifstream file(path, std::ios::binary);
    ASSERT_TRUE(file) << "no golden file " << name;
    const std::string expected{std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
    EXPECT_EQ(actual, expected) << name;
}

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
