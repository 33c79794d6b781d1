// SPDX-License-Identifier: MIT
#pragma once

#include "shell/report/rich_text.h"

#include <QString>
#include <QTextCursor>
#include <QTextDocument>

#include <span>
#include <string>
#include <vector>

class QPagedPaintDevice;

namespace kelvarin
{

/// Fills a document of the toolkit with styled lines: fonts, colours, tab stops; one block per line, with the same
/// number of characters. Sizes are multiplied by `zoom`. The paper is white, whatever the palette.
void fill_document(QTextDocument& document, std::span<const styled_line> lines, double zoom = 1.0);

/// The width in pixels of the widest row of a table. Such rows are never wrapped, so that columns stay aligned.
double widest_row(const QTextDocument& document);

/// The part of `lines` that is selected in the document that was filled with them.
std::vector<styled_line> selected_lines(std::span<const styled_line> lines, const QTextCursor& selection);

/// The characters `from` to `to` of a line, in UTF-16 units.
styled_line part_of_line(const styled_line& line, qsizetype from, qsizetype to);

/// Prints with page numbers. If a row of a table is wider than the page, the print is scaled down, the page is turned,
/// or the table is broken into blocks of columns; nothing is cut.
void print_lines(QPagedPaintDevice& device, std::span<const styled_line> lines);

/// The lines as a PDF file.
std::string pdf_of(std::span<const styled_line> lines, const QString& title);

} // namespace kelvarin
