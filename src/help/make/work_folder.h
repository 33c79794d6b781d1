// SPDX-License-Identifier: MIT
#pragma once

#include <filesystem>

namespace kelvarin
{

/// A folder with a copy of the examples, which is the current one for as long as this lives.
class work_folder
{
public:
    explicit work_folder(const std::filesystem::path& examples);
    ~work_folder();
    work_folder(const work_folder&) = delete;
    work_folder& operator=(const work_folder&) = delete;

private:
    std::filesystem::path before_;
    std::filesystem::path folder_;
};

} // namespace kelvarin
