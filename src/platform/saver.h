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

/// The system calls of the saver that can fail, so that tests can make each of them fail. Each behaves as the POSIX
/// call of its name and reports by errno.
struct save_calls
{
    std::function<int(const char* path, int flags, mode_t mode)> open;
    std::function<ssize_t(int file, const void* bytes, std::size_t count)> write;
    std::function<int(int file)> fsync;
    std::function<int(int file)> close;
    std::function<int(const char* from, const char* to)> rename;
};

/// The real system calls.
const save_calls& system_save_calls();

/// Writes `content` to `path`, atomically and durably. Returns nullopt on success; on failure the file is as it was
/// before. One failure occurs after that: the whole content is in place but the folder could not be made durable, and
/// its reason says so. A link is followed, an existing file's mode is kept, and anything but a regular file with write
/// permission is refused.
std::optional<file_failure> save_file(const std::filesystem::path& path, std::string_view content,
                                      const save_calls& calls = system_save_calls());

/// Removes the temporary files that programs which were killed while saving left in `folder`. One that is younger than
/// an hour stays: a folder may be shared with programs of another machine, whose numbers say nothing here.
void remove_abandoned_files(const std::filesystem::path& folder);

} // namespace kelvarin
