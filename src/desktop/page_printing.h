// SPDX-License-Identifier: MIT
#pragma once

#include "desktop/user_interface.h"

class QPrinter;

namespace kelvarin
{

/// Prints on the chosen printer. A PDF file is made in memory, with the printer's page layout and page range, and saved
/// entirely or not at all: the toolkit doesn't report a full disk and leaves a truncated file.
print_outcome print_pages(QPrinter& printer, const page_painter& paint);

/// The outcome of pages that the toolkit has printed by itself.
print_outcome outcome_of(const QPrinter& printer);

} // namespace kelvarin
