// SPDX-License-Identifier: MIT
#pragma once

#include <filesystem>
#include <optional>
#include <string_view>
#include <vector>

namespace kelvarin
{

/// The folders of data files in search order: the program's, "../share/kelvarin" relative to it, user_data_folder(),
/// then "kelvarin" in each folder of `$XDG_DATA_DIRS` (`/usr/local/share:/usr/share` if it is not set).
std::vector<std::filesystem::path> data_folders();

/// The path of file `name` in the first of `folders` that has it. Returns nullopt if none has.
std::optional<std::filesystem::path> find_data_file(std::string_view name,
                                                    const std::vector<std::filesystem::path>& folders = data_folders());

/// The same for a folder.
std::optional<std::filesystem::path>
find_data_folder(std::string_view name, const std::vector<std::filesystem::path>& folders = data_folders());

} // namespace kelvarin
