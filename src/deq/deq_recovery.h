// SPDX-License-Identifier: MIT
#pragma once

#include "deq/deq_content.h"

#include <optional>
#include <string>
#include <string_view>

namespace kelvarin
{

/// The content as JSON. Unlike a problem file it keeps everything: the order of the rows, blanks, invalid names.
std::string deq_recovery_text(const deq_content& content);

/// The content that deq_recovery_text wrote. Returns nullopt if the text is not valid.
std::optional<deq_content> read_deq_recovery(std::string_view text);

} // namespace kelvarin
