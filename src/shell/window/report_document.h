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

/// The styled lines as a document of the toolkit: fonts, colours, tab stops; one block for each line, with the same
/// letters. Sizes are multiplied by `zoom`. Paper is white, whatever the palette.
void fill_document(QTextDocument& document, std::span<const styled_line> lines, double zoom = 1.0);

/// The width, in pixels, of the widest row of a table: those are never broken, so that columns stand.
double widest_row(const QTextDocument& document);

/// The part of `lines` that `selection` marks in the document that was filled with them.
std::vector<styled_line> selected_lines(std::span<const styled_line> lines, const QTextCursor& selection);

/// Prints with page numbers; made smaller where a row of a table would not fit on the page.
void print_lines(QPagedPaintDevice& device, std::span<const styled_line> lines);

/// The lines as a file in PDF.
std::string pdf_of(std::span<const styled_line> lines, const QString& title);

} // namespace kelvarin
