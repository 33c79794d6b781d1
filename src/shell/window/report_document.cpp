// SPDX-License-Identifier: MIT
#include "shell/window/report_document.h"

#include "desktop/qt_text.h"
#include "shell/window/report_blocks.h"

#include <QAbstractTextDocumentLayout>
#include <QBuffer>
#include <QFontMetricsF>
#include <QPageRanges>
#include <QPagedPaintDevice>
#include <QPainter>
#include <QPdfWriter>
#include <QTextBlock>
#include <QTextFrame>

#include <algorithm>
#include <limits>

namespace kelvarin
{

namespace
{

/// A table that would need a smaller scale is broken into blocks of columns: 8 points become 6.
constexpr double smallest_print = 0.75;

/// The width of a line of text on the page, in pixels of the document.
double width_of_text(const QPagedPaintDevice& device)
{
    constexpr double margins_in_inches = 2 * 2.0 / 2.54; // those that the toolkit leaves around pages
    // Advances on paper differ slightly from those measured for the screen.
    constexpr double part_taken = 0.98;
    const double inches = device.pageLayout().paintRect(QPageLayout::Inch).width() - margins_in_inches;
    return inches * document_pixels_per_inch() * part_taken;
}

/// The width of a line of text on the page, which is turned to landscape if only that makes room for `needed`.
double room_on_page(QPagedPaintDevice& device, double needed)
{
    const double upright = width_of_text(device);
    if (needed <= upright) return upright;
    const QPageLayout before = device.pageLayout();
    device.setPageOrientation(QPageLayout::Landscape);
    if (const double turned = width_of_text(device); needed <= turned) return turned;
    device.setPageLayout(before);
    return upright;
}

/// How far a place in the text of a document's block is from the start of its line, in UTF-16 units.
qsizetype place_in_line(const QTextDocument& document, std::span<const block_place> blocks, int position,
                        std::size_t& line)
{
    const QTextBlock block = document.findBlock(position);
    const block_place& place = blocks[std::min(static_cast<std::size_t>(block.blockNumber()), blocks.size() - 1)];
    line = place.line;
    return place.from + position - block.position();
}

/// The margin around the text of a page, in the units of the device.
double page_margin(const QPagedPaintDevice& device)
{
    constexpr double inches = 2.0 / 2.54;
    return inches * device.logicalDpiY();
}

void prepare_pages(QTextDocument& document, QPagedPaintDevice& device)
{
    document.setUseDesignMetrics(true);
    document.documentLayout()->setPaintDevice(&device);
    document.setPageSize(QSizeF(device.width(), device.height()));
    QTextFrameFormat format = document.rootFrame()->frameFormat();
    format.setMargin(page_margin(device));
    document.rootFrame()->setFrameFormat(format);
}

void paint_page(QPainter& painter, QTextDocument& document, int page)
{
    const QSizeF size = document.pageSize();
    const auto& device = static_cast<const QPagedPaintDevice&>(*painter.device());
    painter.save();
    painter.translate(0.0, -(page - 1) * size.height());
    const QRectF view(0.0, (page - 1) * size.height(), size.width(), size.height());
    QAbstractTextDocumentLayout::PaintContext context;
    painter.setClipRect(view);
    context.clip = view;
    // The colour of what has none of its own.
    context.palette.setColor(QPalette::Text, Qt::black);
    document.documentLayout()->draw(&painter, context);
    painter.restore();

    constexpr double points_below_text = 5.0;
    constexpr double points_per_inch = 72.0;
    painter.setFont(QFont(document.defaultFont()));
    const QString number = QString::number(page);
    const QFontMetricsF metrics(painter.font(), painter.device());
    const double margin = page_margin(device);
    painter.drawText(
        QPointF(size.width() - margin - metrics.horizontalAdvance(number),
                size.height() - margin + metrics.ascent() + points_below_text * device.logicalDpiY() / points_per_inch),
        number);
}

/// Prints lines of which no row is wider than the page.
bool print_fitting_lines(QPagedPaintDevice& device, std::span<const styled_line> lines, double zoom,
                         const print_progress& goes_on)
{
    constexpr std::size_t letters_at_once = 10'000;
    // Making the pages takes about as long as painting them.
    constexpr double part_of_filling = 0.5;
    QTextDocument document;
    prepare_pages(document, device);
    document_filler filler(document, lines, zoom);
    while (!filler.at_end()) {
        filler.add(letters_at_once);
        const double lines_done = static_cast<double>(filler.blocks().back().line);
        if (!goes_on(part_of_filling * lines_done / static_cast<double>(lines.size()))) return false;
    }
    QPainter painter(&device);
    // A printer that can't begin says so by its state.
    if (!painter.isActive()) return true;
    const int pages = document.pageCount();
    const QPageRanges chosen = device.pageRanges();
    bool is_first = true;
    for (int page = 1; page <= pages; ++page) {
        if (!chosen.isEmpty() && !chosen.contains(page)) continue;
        if (!is_first && !device.newPage()) return true;
        is_first = false;
        paint_page(painter, document, page);
        if (!goes_on(part_of_filling + (1.0 - part_of_filling) * page / pages)) return false;
    }
    return true;
}

} // namespace

styled_line part_of_line(const styled_line& line, qsizetype from, qsizetype to)
{
    styled_line part;
    qsizetype start = 0;
    for (const styled_run& run : line) {
        const QString text = to_qstring(run.text);
        const qsizetype first = std::max(from - start, qsizetype{0});
        const qsizetype last = std::min(to - start, text.size());
        if (first < last) {
            part.push_back(run);
            part.back().text = to_text(text.mid(first, last - first));
        }
        start += text.size();
    }
    return part;
}

std::vector<styled_line> selected_lines(std::span<const styled_line> lines, std::span<const block_place> blocks,
                                        const QTextCursor& selection, bool to_end)
{
    std::vector<styled_line> part;
    if (!selection.hasSelection() || blocks.empty()) return part;
    std::size_t first = 0;
    std::size_t last = 0;
    const qsizetype from = place_in_line(*selection.document(), blocks, selection.selectionStart(), first);
    constexpr qsizetype whole = std::numeric_limits<qsizetype>::max();
    qsizetype to = place_in_line(*selection.document(), blocks, selection.selectionEnd(), last);
    if (to_end) {
        last = lines.size() - 1;
        to = whole;
    }
    for (std::size_t line = first; line <= last; ++line)
        part.push_back(part_of_line(lines[line], line == first ? from : 0, line == last ? to : whole));
    return part;
}

bool print_lines(QPagedPaintDevice& device, std::span<const styled_line> lines, const print_progress& goes_on)
{
    const double widest = widest_row(lines);
    const double page = room_on_page(device, widest * smallest_print);
    if (widest * smallest_print <= page)
        return print_fitting_lines(device, lines, std::min(page / std::max(widest, 1.0), 1.0), goes_on);
    const std::vector<styled_line> broken = in_blocks_of_columns(lines, [page](const styled_run& run) {
        const QFontMetricsF metrics(text_format_of(run, 1.0).font());
        return static_cast<int>(page / metrics.horizontalAdvance(QLatin1Char('0')));
    });
    return print_fitting_lines(device, broken, 1.0, goes_on);
}

std::optional<std::string> pdf_of(std::span<const styled_line> lines, const QString& title,
                                  const print_progress& goes_on)
{
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    {
        QPdfWriter writer(&buffer);
        writer.setTitle(title);
        writer.setCreator(QStringLiteral("Kelvarin"));
        writer.setPageSize(QPageSize(QPageSize::A4));
        if (!print_lines(writer, lines, goes_on)) return std::nullopt;
    }
    return bytes.toStdString();
}

} // namespace kelvarin
