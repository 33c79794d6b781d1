// SPDX-License-Identifier: MIT
#pragma once

#include "shell/report/styled_text.h"
#include "shell/window/report_filler.h"

#include <QString>
#include <QTextCursor>

#include <functional>
#include <optional>
#include <span>
#include <string>
#include <vector>

class QPagedPaintDevice;

namespace kelvarin
{

/// The part of `lines` that is selected in the document that was filled with them, `blocks` being its blocks. With
/// `to_end` the selection goes up to the end of the lines, also where the document doesn't.
std::vector<styled_line> selected_lines(std::span<const styled_line> lines, std::span<const block_place> blocks,
                                        const QTextCursor& selection, bool to_end = false);

/// The characters `from` to `to` of a line, in UTF-16 units.
styled_line part_of_line(const styled_line& line, qsizetype from, qsizetype to);

/// Is told the part from 0 to 1 that is done, and answers whether to go on.
using print_progress = std::function<bool(double part)>;

/// Prints with page numbers. If a row of a table is wider than the page, the print is scaled down, the page is turned,
/// or the table is broken into blocks of columns; nothing is cut. Returns false if it was stopped.
bool print_lines(QPagedPaintDevice& device, std::span<const styled_line> lines, const print_progress& goes_on);

/// The lines as a PDF file; nullopt if it was stopped.
std::optional<std::string> pdf_of(
    std::span<const styled_line> lines, const QString& title,
    const print_progress& goes_on = [](double) { return true; });

} // namespace kelvarin
