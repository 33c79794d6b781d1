// SPDX-License-Identifier: MIT
#pragma once

#include <string_view>

class QPagedPaintDevice;

namespace kelvarin
{

/// Prints a plain text in the fixed-width font, with page numbers.
void print_text(QPagedPaintDevice& device, std::string_view text);

} // namespace kelvarin
