// SPDX-License-Identifier: MIT
#pragma once

#include "platform/text_file.h"

#include <filesystem>
#include <optional>
#include <string_view>

namespace kelvarin
{

/// Whether the path leads to something that is neither a file nor a folder: a pipe, a terminal or another device.
bool is_pipe_or_device(const std::filesystem::path& path);

/// The number of the open file of this process that a path such as "/dev/stdout", "/dev/fd/3" or "/proc/self/fd/3"
/// names. Returns nullopt for every other path.
std::optional<int> open_file_named(const std::filesystem::path& path);

/// Appends all bytes to an open file of this process. Returns nullopt on success.
std::optional<file_failure> write_to_open_file(int number, std::string_view content);

} // namespace kelvarin
