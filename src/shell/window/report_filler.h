// SPDX-License-Identifier: MIT
#pragma once

#include "shell/report/styled_text.h"
#include "shell/window/report_pieces.h"

#include <QTextCharFormat>
#include <QTextCursor>
#include <QTextDocument>

#include <cstddef>
#include <span>
#include <vector>

namespace kelvarin
{

/// Where the text of a block begins: the line, and the place in it in UTF-16 units.
struct block_place
{
    std::size_t line = 0;
    std::ptrdiff_t from = 0;
};

/// The format of runs at a zoom; consecutive runs of one style share it.
class run_format
{
public:
    explicit run_format(double zoom);

    const QTextCharFormat& of(const styled_run& run);
    /// Of the last run's font.
    double width_of_digit() const { return width_of_digit_; }

private:
    double zoom_;
    styled_run last_;
    QTextCharFormat format_;
    double width_of_digit_ = 0.0;
};

/// Fills a document of the toolkit with styled lines, as many at a time as are asked for: fonts, colours, tab stops;
/// one block per piece of a line, with the same number of characters. Sizes are multiplied by `zoom`. The paper is
/// white, whatever the palette.
class document_filler
{
public:
    /// Clears the document. Document and lines must outlive the filler.
    document_filler(QTextDocument& document, std::span<const styled_line> lines, double zoom);

    bool at_end() const { return reader_.at_end(); }
    /// Adds the next pieces, of about so many letters; blocks and changes of style count as some letters.
    void add(std::size_t letters);

    /// The blocks of the document, in their order.
    const std::vector<block_place>& blocks() const { return blocks_; }
    /// The width in pixels of the widest row of a table among them. Such rows are never wrapped, so that columns stay
    /// aligned.
    double widest_row() const { return widest_row_; }

private:
    void add_piece(const report_piece& piece);

    QTextCursor cursor_;
    piece_reader reader_;
    run_format format_;
    std::vector<block_place> blocks_;
    double widest_row_ = 0.0;
};

/// Fills a document with all of the lines at once.
void fill_document(QTextDocument& document, std::span<const styled_line> lines);

/// The width in pixels of the widest row of a table among the lines.
double widest_row(std::span<const styled_line> lines);

/// The font and colour of a run.
QTextCharFormat text_format_of(const styled_run& run, double zoom);

/// The resolution that the toolkit assumes for a document.
double document_pixels_per_inch();

} // namespace kelvarin
