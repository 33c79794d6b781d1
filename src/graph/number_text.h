// SPDX-License-Identifier: MIT
#pragma once

#include <string>

namespace kelvarin
{

/// A finite double in the fewest digits that read back equal; the same as plain_text if 15 of them are enough.
std::string exact_text(double value);

} // namespace kelvarin
