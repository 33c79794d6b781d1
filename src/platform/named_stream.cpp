// SPDX-License-Identifier: MIT
#include "platform/named_stream.h"

#include "platform/posix_file.h"
#include "platform/uninterrupted.h"

#include <charconv>
#include <string>

#include <sys/stat.h>
#include <unistd.h>

namespace kelvarin
{

bool is_pipe_or_device(const std::filesystem::path& path)
{
    struct stat about
    {
    };
    return ::stat(path.c_str(), &about) == 0 && !S_ISREG(about.st_mode) && !S_ISDIR(about.st_mode);
}

std::optional<int> open_file_named(const std::filesystem::path& path)
{
    const std::string name = path.lexically_normal().native();
    if (name == "/dev/stdout") return STDOUT_FILENO;
    if (name == "/dev/stderr") return STDERR_FILENO;
    for (const std::string_view folder : {"/dev/fd/", "/proc/self/fd/"}) {
        if (!name.starts_with(folder)) continue;
        int number = 0;
        const char* const end = name.data() + name.size();
        const auto read = std::from_chars(name.data() + folder.size(), end, number);
        if (read.ec == std::errc() && read.ptr == end && number >= 0) return number;
    }
    return std::nullopt;
}

std::optional<file_failure> write_to_open_file(int number, std::string_view content)
{
    while (!content.empty()) {
        const ssize_t count = uninterrupted([&] { return ::write(number, content.data(), content.size()); });
        if (count <= 0)
            return file_failure{"/dev/fd/" + std::to_string(number), system_reason(count < 0 ? errno : ENOSPC)};
        content.remove_prefix(static_cast<std::size_t>(count));
    }
    return std::nullopt;
}

} // namespace kelvarin
