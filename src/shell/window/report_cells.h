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

/// The cells of a line. A row of a table is all in fixed width and has at least two cells, set apart by two
/// blanks or a tab; numbers that wide signs have pushed together are cells as well. Every other line is one cell.
std::vector<std::string> cells_of(const styled_line& line);

/// Whether the line is a row of a table.
bool is_table_row(const styled_line& line);

/// A part of a report as it is copied: rich text, HTML, plain text, and cells separated by tabs. Where only rows
/// of tables were chosen, the HTML is a table, which spreadsheets take apart into their own cells.
std::unique_ptr<QMimeData> clipboard_content(std::span<const styled_line> lines);

} // namespace kelvarin
