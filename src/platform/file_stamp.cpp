// SPDX-License-Identifier: MIT
#include "platform/file_stamp.h"

#include <sys/stat.h>

namespace kelvarin
{

std::optional<file_stamp> stamp_of(const std::filesystem::path& path)
{
    constexpr std::int64_t nanoseconds = 1'000'000'000;
    struct stat about
    {
    };
    if (::stat(path.c_str(), &about) != 0) return std::nullopt;
    return file_stamp{.device = about.st_dev,
                      .number = about.st_ino,
                      .size = about.st_size,
                      .written_at = about.st_mtim.tv_sec * nanoseconds + about.st_mtim.tv_nsec};
}

} // namespace kelvarin
