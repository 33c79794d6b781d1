// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>

namespace kelvarin
{

/// `text` with A to Z as a to z, whatever the locale; all other bytes stay.
std::string lower_case(std::string_view text);

} // namespace kelvarin
