// SPDX-License-Identifier: MIT
#pragma once

#include "deq/deq_content.h"

#include <optional>
#include <string>
#include <string_view>

namespace kelvarin
{

/// The content as JSON. Other than a problem file it keeps all: the order of the rows, blanks, names that a file has no
/// room for.
std::string deq_recovery_text(const deq_content& content);

/// The content that deq_recovery_text wrote; nothing where the text is none of its.
std::optional<deq_content> read_deq_recovery(std::string_view text);

} // namespace kelvarin
