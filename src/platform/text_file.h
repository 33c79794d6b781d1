// SPDX-License-Identifier: MIT
#pragma once

#include "platform/file_bounds.h"

#include <cstddef>
#include <filesystem>
#include <functional>
#include <limits>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace kelvarin
{

/// A file that could not be read or written: its path, and the reason for the user.
struct file_failure
{
    std::filesystem::path place;
    std::string reason;
};

/// The content of a text file as UTF-8. `failure.reason` is empty if and only if it was read.
struct text_file
{
    std::string text;
    file_failure failure;
    /// Whether the failure is that the file is beyond its bounds.
    bool is_too_large = false;

    bool ok() const { return failure.reason.empty(); }
};

/// Reads a whole regular file, following links. If the bytes are not valid UTF-8 as a whole, they are read as Latin-1;
/// a byte order mark is dropped. A folder, a device, a missing file or a file beyond the bounds is a failure, and so is
/// that `stop_asked`, which is called now and then, returns true.
text_file read_text_file(const std::filesystem::path& path, const file_bounds& bounds = widest_bounds,
                         const std::function<bool()>& stop_asked = nullptr);

/// Reads a regular file of any size piece by piece, as its bytes stand. `take` gets each piece and returns false if it
/// wants no more. Refuses the same files as read_text_file, but for their size.
std::optional<file_failure> read_in_pieces(const std::filesystem::path& path,
                                           const std::function<bool(std::string_view)>& take);

/// read_text_file for a program at the end of a pipe: pipes and devices are read as well, and "-" is standard input.
/// Waits for what comes; `stop_asked` is called ten times a second meanwhile, and if it returns true, that is a
/// failure.
text_file read_text_input(const std::filesystem::path& path, const std::function<bool()>& stop_asked);

/// `bytes` if they are valid UTF-8, else the UTF-8 text of their Latin-1 reading.
std::string to_utf8(std::string_view bytes);

/// Removes the first line of `text` and its end, and returns the line. Line ends are CR LF, LF, CR, or CR CR LF.
std::string_view take_line(std::string_view& text);

/// The lines of `text`, at most `most` of them. A line end at the very end of the text starts no further line.
std::vector<std::string_view> split_lines(std::string_view text,
                                          std::size_t most = std::numeric_limits<std::size_t>::max());

/// `text` with each CR and LF replaced by a blank, for a line of a file or a one-line field.
std::string one_line(std::string_view text);

/// `text` without blanks, tabs, CR and LF at both ends.
std::string_view trimmed(std::string_view text);

/// `text` for a one-line field: CR, LF and tabs become blanks, and the result is trimmed.
std::string field_text(std::string_view text);

} // namespace kelvarin
