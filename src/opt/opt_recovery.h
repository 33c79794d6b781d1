// SPDX-License-Identifier: MIT
#pragma once

#include "opt/opt_content.h"

#include <optional>
#include <string>
#include <string_view>

namespace kelvarin
{

/// The content as JSON. Unlike a problem file it keeps everything: the method, blanks.
std::string opt_recovery_text(const opt_content& content);

/// The content that opt_recovery_text wrote. Returns nullopt if the text is not valid.
std::optional<opt_content> read_opt_recovery(std::string_view text);

} // namespace kelvarin
