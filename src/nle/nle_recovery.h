// SPDX-License-Identifier: MIT
#pragma once

#include "nle/nle_content.h"

#include <optional>
#include <string>
#include <string_view>

namespace kelvarin
{

/// The content as JSON. Other than a problem file it keeps all: the order of the rows, the guess of a single
/// equation, bounds that are no numbers, blanks.
std::string nle_recovery_text(const nle_content& content);

/// The content that nle_recovery_text wrote; nothing where the text is none of its.
std::optional<nle_content> read_nle_recovery(std::string_view text);

} // namespace kelvarin
