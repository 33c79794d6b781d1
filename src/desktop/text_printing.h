// SPDX-License-Identifier: MIT
#pragma once

#include <string_view>

class QPrinter;

namespace kelvarin
{

/// Prints a plain text in the fixed-width font, with page numbers.
void print_text(QPrinter& printer, std::string_view text);

} // namespace kelvarin
