// SPDX-License-Identifier: MIT
#pragma once

#include "platform/registry_store.h"

#include <cstddef>
#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

namespace kelvarin
{

/// The number of recent files stored per kind.
inline constexpr std::size_t recent_file_limit = 4;

/// The recent files of a kind, latest first: value names "1" to "4" under the root key with `suffix` ("\\files_nle")
/// appended. Only absolute paths of at least 3 characters whose file exists are returned.
std::vector<std::filesystem::path> load_recent_files(const registry_store& registry, std::string_view suffix,
                                                     std::size_t limit = recent_file_limit);

/// Moves `path` (made absolute) to the front and writes the list; the caller flushes the registry.
void remember_recent_file(registry_store& registry, std::string_view suffix, const std::filesystem::path& path);

/// The menu caption of a recent file, `number` from 1: "&1 " and the path in lower case, shortened if it is longer than
/// 20 characters; an "&" in the path is doubled.
std::string recent_file_caption(std::size_t number, const std::filesystem::path& path);

} // namespace kelvarin
