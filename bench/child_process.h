// SPDX-License-Identifier: MIT
#pragma once

#include <filesystem>
#include <string>
#include <vector>

namespace kelvarin::bench
{

struct finished_process
{
    int status = 0;
    /// Largest resident memory, in MB. The system counts in what this process had when it started the
    /// other one, so that small figures are only a bound.
    double memory = 0.0;
};

/// Runs a program of the build to its end, its output thrown away or written to `output`. Throws where it
/// does not start.
finished_process run_process(const std::vector<std::string>& arguments,
                             const std::filesystem::path& output = "/dev/null");

/// A program that was built beside this one.
std::string program_beside(const std::string& name);

/// A folder that goes when this object goes.
class scratch_folder
{
public:
    scratch_folder();
    ~scratch_folder();
    scratch_folder(const scratch_folder&) = delete;
    scratch_folder& operator=(const scratch_folder&) = delete;

    const std::filesystem::path& path() const { return path_; }

private:
    std::filesystem::path path_;
};

} // namespace kelvarin::bench
