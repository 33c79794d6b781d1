// SPDX-License-Identifier: MIT
#pragma once

#include <filesystem>
#include <optional>
#include <string_view>
#include <vector>

namespace kelvarin
{

/// Where data files are looked for, in this order: beside the program, in "../share/kelvarin" from there, in
/// user_data_folder(), then in "kelvarin" in each folder of `$XDG_DATA_DIRS` (`/usr/local/share:/usr/share` where it is
/// not set).
std::vector<std::filesystem::path> data_folders();

/// The first of `folders` that holds the file `name`, with the name behind it.
std::optional<std::filesystem::path> find_data_file(std::string_view name,
                                                    const std::vector<std::filesystem::path>& folders = data_folders());

} // namespace kelvarin
