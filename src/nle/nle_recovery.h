// SPDX-License-Identifier: MIT
#pragma once

#include "nle/nle_content.h"

#include <optional>
#include <string>
#include <string_view>

namespace kelvarin
{

/// The content as JSON. Unlike a problem file it keeps everything: the order of the rows, the guess of a single
/// equation, bounds that are not numbers, blanks.
std::string nle_recovery_text(const nle_content& content);

/// The content that nle_recovery_text wrote. Returns nullopt if the text is not valid.
std::optional<nle_content> read_nle_recovery(std::string_view text);

} // namespace kelvarin
