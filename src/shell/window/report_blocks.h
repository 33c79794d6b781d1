// SPDX-License-Identifier: MIT
#pragma once

#include "shell/report/rich_text.h"

#include <functional>
#include <span>
#include <vector>

namespace kelvarin
{

/// The number of characters of a run's font that fit on one line of the page.
using page_letters = std::function<int(const styled_run&)>;

/// Breaks every table that is wider than the page into blocks of columns, one below the other. Each block has the
/// headings of its columns, and repeats the first column if that contains the names of the rows. A column that is wider
/// than the page continues in the next block. Other lines stay unchanged.
std::vector<styled_line> in_blocks_of_columns(std::span<const styled_line> lines, const page_letters& fitting);

} // namespace kelvarin
