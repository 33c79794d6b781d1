// SPDX-License-Identifier: MIT
#pragma once

#include "platform/text_file.h"

#include <sys/types.h>

#include <filesystem>
#include <functional>
#include <optional>
#include <string_view>

namespace kelvarin
{

/// The system calls of the saver that can fail, so that a test can fail each in turn. Each behaves as the
/// POSIX call of its name and reports by errno.
struct save_calls
{
    std::function<int(const char* path, int flags, mode_t mode)> open;
    std::function<ssize_t(int file, const void* bytes, std::size_t count)> write;
    std::function<int(int file)> fsync;
    std::function<int(int file)> close;
    std::function<int(const char* from, const char* to)> rename;
};

/// The calls of the operating system.
const save_calls& system_save_calls();

/// Writes `content` to `path`, atomically and durably: afterwards the file holds the whole content, or
/// (with a failure returned) whatever it held before. One failure comes too late for that, and its reason says
/// so: the whole content is in place, but the folder could not be made durable. A link is followed, an existing
/// file's mode is kept, what is no regular file or may not be written is refused.
std::optional<file_failure> save_file(const std::filesystem::path& path, std::string_view content,
                                      const save_calls& calls = system_save_calls());

} // namespace kelvarin
