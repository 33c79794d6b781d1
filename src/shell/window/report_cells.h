// SPDX-License-Identifier: MIT
#pragma once

#include "shell/report/styled_text.h"

#include <QMimeData>

#include <memory>
#include <span>
#include <string>
#include <vector>

namespace kelvarin
{

/// Whether a line is entirely in a fixed-width font; blanks in other fonts, as in front of a table's rows, don't count.
bool is_fixed_width(const styled_line& line);

/// The cells of a line. A row of a table is entirely in a fixed-width font and has at least two cells, separated by two
/// blanks or a tab; numbers that wide signs have pushed together are cells as well. Any other line is one cell.
std::vector<std::string> cells_of(const styled_line& line);

/// Whether the line is a row of a table.
bool is_table_row(const styled_line& line);

/// The clipboard content of a part of a report: rich text, HTML, plain text, and cells separated by tabs. If all lines
/// are rows of tables, the HTML is a table, which spreadsheets split into cells.
std::unique_ptr<QMimeData> clipboard_content(std::span<const styled_line> lines);

} // namespace kelvarin
