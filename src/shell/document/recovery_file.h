// SPDX-License-Identifier: MIT
#pragma once

#include "shell/document/recovery.h"

#include <optional>
#include <string>
#include <string_view>

namespace kelvarin
{

/// The content of a recovery file: JSON. A path's bytes are kept whatever they are.
std::string recovery_file_text(const recovery_entry& entry);

/// The entry of a recovery file; nothing where the text is none or was cut short.
std::optional<recovery_entry> read_recovery_file(std::string_view text);

} // namespace kelvarin
