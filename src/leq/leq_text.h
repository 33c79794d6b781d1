// SPDX-License-Identifier: MIT
#pragma once

#include "leq/leq_content.h"

#include <string>
#include <string_view>
#include <vector>

/// The matrix and the equations as lines of text, shared by the report and the printed listing.
namespace kelvarin
{

/// A cell as it is displayed: the plain text of its number, or the cell's own text if it is not numeric.
std::string shown_cell(std::string_view cell);

/// The width of each column in characters, beta's last: that of its longest cell or its head.
std::vector<std::size_t> column_widths(const leq_content& content);

/// The head above a column: a name, or "beta".
std::string_view column_head(const leq_content& content, int column);

/// The blanks that right-align `text` in a column of `width` characters.
std::string blanks_before(std::string_view text, std::size_t width);

/// An equation in full: "-2*x1 + 0*x2 - 0.5*x3 = 4".
std::string equation_text(const leq_content& content, int row);

} // namespace kelvarin
