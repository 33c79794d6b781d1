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

} // namespace kelvarin::test
