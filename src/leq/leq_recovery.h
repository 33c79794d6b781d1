// SPDX-License-Identifier: MIT
#pragma once

#include "leq/leq_content.h"

#include <optional>
#include <string>
#include <string_view>

namespace kelvarin
{

/// The content as JSON.
std::string leq_recovery_text(const leq_content& content);

/// The content that leq_recovery_text wrote. Returns nullopt if the text is not valid.
std::optional<leq_content> read_leq_recovery(std::string_view text);

} // namespace kelvarin
