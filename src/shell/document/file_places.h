// SPDX-License-Identifier: MIT
#pragma once

#include "platform/registry_store.h"

#include <filesystem>
#include <string>
#include <string_view>

namespace kelvarin
{

/// The folder of the file that was last opened or saved under `key` ("nle", "report"); empty if there is none, or if it
/// no longer exists.
std::filesystem::path last_folder(const registry_store& registry, std::string_view key);

/// Stores the folder of `file` under `key`; the caller flushes the registry.
void remember_folder(registry_store& registry, std::string_view key, const std::filesystem::path& file);

/// The name of a file for a document with this title, with `extension` (".kvr"); empty if the title has no letter that
/// a name could be made of. Characters that some file system refuses become blanks, and a long title is cut at a
/// character.
std::string file_name_of_title(std::string_view title, std::string_view extension);

} // namespace kelvarin
