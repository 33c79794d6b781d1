// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <utility>

namespace kelvarin
{

/// Owns an open file or folder of the operating system and closes it when destroyed. -1 means none.
class posix_file
{
public:
    explicit posix_file(int file = -1) : file_(file) {}
    posix_file(posix_file&& other) noexcept : file_(std::exchange(other.file_, -1)) {}
    posix_file& operator=(posix_file&&) = delete;
    ~posix_file();

    bool is_open() const { return file_ >= 0; }
    int number() const { return file_; }
    /// Passes the file to a caller, who must close it.
    int release() { return std::exchange(file_, -1); }

private:
    int file_;
};

/// The text of an errno value.
std::string system_reason(int error_number);

} // namespace kelvarin
