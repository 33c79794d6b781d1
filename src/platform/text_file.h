// SPDX-License-Identifier: MIT
#pragma once

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

namespace kelvarin
{

/// A file that could not be read or written: where and why, in words for the user.
struct file_failure
{
    std::filesystem::path place;
    std::string reason;
};

/// The content of a text file as UTF-8. `failure.reason` is empty exactly when it was read.
struct text_file
{
    std::string text;
    file_failure failure;

    bool ok() const { return failure.reason.empty(); }
};

/// Reads a regular file (or what a link leads to) whole. Bytes that are no UTF-8 as a whole are taken as
/// Latin-1; a byte order mark is dropped. A folder, a device, a missing file, a file over 64 MiB fail.
text_file read_text_file(const std::filesystem::path& path);

/// `bytes` if they are valid UTF-8, else their Latin-1 reading as UTF-8.
std::string to_utf8(std::string_view bytes);

/// The lines of `text`, whatever their ends: CR LF, LF, CR, or CR CR LF. A line end at the very end of the
/// text opens no further line.
std::vector<std::string_view> split_lines(std::string_view text);

/// `text` with each CR and LF replaced by a blank, as a line of a file or a field of one line takes it.
std::string one_line(std::string_view text);

/// `text` without the blanks, tabs, CR and LF at its ends.
std::string_view trimmed(std::string_view text);

/// `text` as a field of one line holds it: CR, LF and tabs are blanks, and none stand around it.
std::string field_text(std::string_view text);

} // namespace kelvarin
