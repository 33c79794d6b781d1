// SPDX-License-Identifier: MIT
#include "platform/text_file.h"

#include "platform/named_stream.h"
#include "platform/posix_file.h"
#include "platform/uninterrupted.h"
#include "platform/utf8.h"

#include <algorithm>
#include <cerrno>
#include <cstddef>

#include <fcntl.h>
#include <poll.h>
#include <sys/stat.h>
#include <unistd.h>

namespace kelvarin
{

namespace
{

constexpr std::size_t megabyte = std::size_t{1} << 20;
constexpr std::string_view byte_order_mark = "\xEF\xBB\xBF";

/// Waits until the file can be read or has ended. Returns false if the reader no longer wants it.
bool wait_for_bytes(const posix_file& file, const std::function<bool()>& stop_asked)
{
    constexpr int milliseconds_between_looks = 100;
    pollfd watched = {file.number(), POLLIN, 0};
    while (!stop_asked())
        if (::poll(&watched, 1, milliseconds_between_looks) > 0) return true;
    return false;
}

std::string too_large(std::size_t largest)
{
    return "it is larger than " + std::to_string(largest / megabyte) + " MB";
}

/// Reads to the end of the file into `bytes`. Returns the reason of a failure, or an empty text. `stop_asked` is null
/// for a file that keeps nobody waiting.
std::string read_all(const posix_file& file, std::size_t expected, std::size_t largest, std::string& bytes,
                     const std::function<bool()>& stop_asked = nullptr)
{
    constexpr std::size_t step = std::size_t{64} * 1024;
    std::size_t filled = 0;
    // One byte more shows the end of a file that doesn't grow.
    bytes.resize(expected + 1);
    while (true) {
        if (filled == bytes.size()) bytes.resize(filled + step);
        if (stop_asked && !wait_for_bytes(file, stop_asked)) return "interrupted";
        const std::size_t room = std::min(bytes.size() - filled, stop_asked ? megabyte : bytes.size());
        const ssize_t count = ::read(file.number(), bytes.data() + filled, room);
        if (count < 0 && errno == EINTR) continue;
        if (count < 0) return system_reason(errno);
        filled += static_cast<std::size_t>(count);
        // A file may grow while it is read.
        if (filled > largest) return too_large(largest);
        if (count == 0) break;
    }
    bytes.resize(filled);
    return {};
}

/// A file opened for reading, or the reason why it is refused.
struct regular_file
{
    posix_file file;
    std::size_t size = 0;
    std::string refusal;

    explicit regular_file(const std::filesystem::path& path)
        // Without O_NONBLOCK opening a pipe would wait for a writer.
        : file(uninterrupted([&] { return ::open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK | O_NOCTTY); }))
    {
        struct stat about
        {
        };
        if (!file.is_open() || ::fstat(file.number(), &about) != 0)
            refusal = system_reason(errno);
        else if (S_ISDIR(about.st_mode))
            refusal = "it is a folder";
        else if (!S_ISREG(about.st_mode))
            refusal = "it is no regular file";
        else
            size = static_cast<std::size_t>(about.st_size);
    }
};

text_file failed(const std::filesystem::path& path, std::string reason, bool is_too_large = false)
{
    return {{}, {path, std::move(reason)}, is_too_large};
}

text_file text_of(std::string bytes)
{
    if (bytes.starts_with(byte_order_mark)) bytes.erase(0, byte_order_mark.size());
    text_file result;
    result.text = is_utf8(bytes) ? std::move(bytes) : to_utf8(bytes);
    return result;
}

} // namespace

text_file read_text_file(const std::filesystem::path& path, const file_bounds& bounds,
                         const std::function<bool()>& stop_asked)
{
    const regular_file opened(path);
    if (!opened.refusal.empty()) return failed(path, opened.refusal);
    const std::size_t size = opened.size;
    const std::size_t largest = bounds.megabytes * megabyte;
    if (size > largest) return failed(path, too_large(largest), true);

    std::string bytes;
    if (std::string reason = read_all(opened.file, size, largest, bytes, stop_asked); !reason.empty())
        return failed(path, std::move(reason), bytes.size() > largest);
    if (std::optional<std::string> excess = excess_of(bytes, bounds)) return failed(path, std::move(*excess), true);
    return text_of(std::move(bytes));
}

std::optional<file_failure> read_in_pieces(const std::filesystem::path& path,
                                           const std::function<bool(std::string_view)>& take)
{
    constexpr std::size_t step = std::size_t{256} * 1024;
    const regular_file opened(path);
    if (!opened.refusal.empty()) return file_failure{path, opened.refusal};
    std::string piece(step, '\0');
    while (true) {
        const ssize_t count = uninterrupted([&] { return ::read(opened.file.number(), piece.data(), piece.size()); });
        if (count < 0) return file_failure{path, system_reason(errno)};
        if (count == 0 || !take(std::string_view(piece).substr(0, static_cast<std::size_t>(count))))
            return std::nullopt;
    }
}

text_file read_text_input(const std::filesystem::path& path, const std::function<bool()>& stop_asked)
{
    const bool standard_input = path == "-";
    if (!standard_input && !is_pipe_or_device(path)) return read_text_file(path);
    const posix_file file(standard_input ? ::fcntl(STDIN_FILENO, F_DUPFD_CLOEXEC, 0) : uninterrupted([&] {
        return ::open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NOCTTY);
    }));
    if (!file.is_open()) return failed(path, system_reason(errno));
    std::string bytes;
    if (std::string reason = read_all(file, 0, widest_bounds.megabytes * megabyte, bytes, stop_asked); !reason.empty())
        return failed(path, std::move(reason));
    return text_of(std::move(bytes));
}

std::string to_utf8(std::string_view bytes)
{
    if (is_utf8(bytes)) return std::string(bytes);
    std::string text;
    text.reserve(bytes.size() * 2);
    for (const char byte : bytes)
        append_utf8(text, static_cast<unsigned char>(byte));
    return text;
}

std::string_view take_line(std::string_view& text)
{
    std::size_t end = 0;
    while (end < text.size() && text[end] != '\r' && text[end] != '\n')
        ++end;
    const std::string_view line = text.substr(0, end);
    text.remove_prefix(end);
    for (const std::string_view line_end : {"\r\r\n", "\r\n", "\r", "\n"}) {
        if (!text.starts_with(line_end)) continue;
        text.remove_prefix(line_end.size());
        break;
    }
    return line;
}

std::vector<std::string_view> split_lines(std::string_view text, std::size_t most)
{
    std::vector<std::string_view> lines;
    while (!text.empty() && lines.size() < most)
        lines.push_back(take_line(text));
    return lines;
}

std::string one_line(std::string_view text)
{
    std::string line(text);
    for (char& letter : line) {
        if (letter == '\r' || letter == '\n') letter = ' ';
    }
    return line;
}

std::string_view trimmed(std::string_view text)
{
    constexpr std::string_view space = " \t\r\n";
    const std::size_t first = text.find_first_not_of(space);
    if (first == std::string_view::npos) return {};
    return text.substr(first, text.find_last_not_of(space) - first + 1);
}

std::string field_text(std::string_view text)
{
    std::string line(trimmed(text));
    std::ranges::replace_if(
        line, [](char c) { return c == '\r' || c == '\n' || c == '\t'; }, ' ');
    return line;
}

} // namespace kelvarin
