// SPDX-License-Identifier: MIT
#pragma once

#include <string>

namespace kelvarin
{

/// A finite double in the fewest digits that read back equal: as plain_text where 15 of them do.
std::string exact_text(double value);

} // namespace kelvarin
