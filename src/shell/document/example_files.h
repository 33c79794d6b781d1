// SPDX-License-Identifier: MIT
#pragma once

#include "shell/document/problem_kind.h"

#include <filesystem>
#include <span>
#include <string>
#include <vector>

namespace kelvarin
{

/// A problem file that is there to be tried.
struct example_file
{
    std::filesystem::path path;
    std::string title;
    const problem_kind* kind = nullptr;
};

/// The problems in the files *.kvr of a folder, in the order of `kinds` and then of their titles. Files that are no
/// problem of these kinds, or can't be read, are left out; so is a folder that doesn't exist.
std::vector<example_file> example_files(const std::filesystem::path& folder,
                                        std::span<const problem_kind* const> kinds);

} // namespace kelvarin
