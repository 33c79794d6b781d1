// SPDX-License-Identifier: MIT
#pragma once

#include "platform/message_box.h"

#include <filesystem>
#include <optional>

namespace kelvarin
{

/// Starts the viewer of the thermodynamic data base, "kvrdata.exe" in `folder`, with the data base "KvrDB.mdb" of the
/// same folder. Returns a box if one of them is missing or the viewer does not start.
std::optional<message_box> start_database_viewer(const std::filesystem::path& folder);

} // namespace kelvarin
