// SPDX-License-Identifier: MIT
#pragma once

#include "shell/document/recovery.h"

#include <optional>
#include <string>
#include <string_view>

namespace kelvarin
{

/// The content of a recovery file as JSON. Paths are preserved byte for byte.
std::string recovery_file_text(const recovery_entry& entry);

/// The entry of a recovery file. Returns nullopt if the text is not a complete one.
std::optional<recovery_entry> read_recovery_file(std::string_view text);

} // namespace kelvarin
