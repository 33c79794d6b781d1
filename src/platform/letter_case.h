// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>

namespace kelvarin
{

/// `text` with A to Z replaced by a to z, independent of the locale; all other bytes are unchanged.
std::string lower_case(std::string_view text);

} // namespace kelvarin
