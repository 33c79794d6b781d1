// SPDX-License-Identifier: MIT
#include "shell/window/report_document.h"

#include "desktop/look.h"
#include "desktop/qt_text.h"
#include "shell/window/report_blocks.h"
#include "shell/window/report_cells.h"

#include <QAbstractTextDocumentLayout>
#include <QBuffer>
#include <QFontMetricsF>
#include <QGuiApplication>
#include <QPdfWriter>
#include <QScreen>
#include <QTextBlock>
#include <QTextOption>

#include <algorithm>

namespace kelvarin
{

namespace
{

constexpr double points_per_inch = 72.0;
/// Tab stops in fixed-width lines.
constexpr int columns_of_tab = 8;
/// A table that would need a smaller scale is broken into blocks of columns: 8 points become 6.
constexpr double smallest_print = 0.75;

/// The resolution that the toolkit assumes for a document.
double pixels_per_inch()
{
    const QScreen* screen = QGuiApplication::primaryScreen();
    return screen ? screen->logicalDotsPerInchY() : 96.0;
}

QFont::StyleHint hint_of(font_class family)
{
    if (family == font_class::serif) return QFont::Serif;
    return family == font_class::sans ? QFont::SansSerif : QFont::Monospace;
}

QTextCharFormat format_of(const styled_run& run, double zoom)
{
    QTextCharFormat format;
    format.setFontFamilies({to_qstring(run.font)});
    // Used if the font isn't installed; names of generic families have no fallback of their own.
    format.setFontStyleHint(hint_of(run.family));
    if (run.family == font_class::monospace) {
        format.setFontFixedPitch(true);
        // Columns are aligned only in a fixed-width font, which the substitute of a missing font need not be.
        const QStringList families = {to_qstring(run.font)};
        if (const QFont named(families.front()); !has_equal_widths(named))
            format.setFontFamilies(families + of_equal_widths(named).families());
    }
    format.setFontPointSize(run.size / 2.0 * zoom);
    format.setFontWeight(run.bold ? QFont::Bold : QFont::Normal);
    format.setFontItalic(run.italic);
    format.setFontUnderline(run.underline);
    format.setForeground(QColor(run.colour.red, run.colour.green, run.colour.blue));
    return format;
}

/// The formats of runs at a zoom; consecutive runs of one style share a format.
class format_maker
{
public:
    explicit format_maker(double zoom) : zoom_(zoom), format_(format_of(last_, zoom)) {}

    const QTextCharFormat& of(const styled_run& run)
    {
        styled_run style = run;
        style.text.clear();
        if (style == last_) return format_;
        last_ = std::move(style);
        format_ = format_of(last_, zoom_);
        return format_;
    }

private:
    double zoom_;
    styled_run last_;
    QTextCharFormat format_;
};

/// Tab stops at every eighth column, for lines entirely in fixed width.
QList<QTextOption::Tab> column_tabs(const styled_line& line, const QTextCharFormat& format)
{
    qsizetype letters = 0;
    qsizetype tabs = 0;
    for (const styled_run& run : line) {
        const QString text = to_qstring(run.text);
        letters += text.size();
        tabs += text.count(QLatin1Char('\t'));
    }
    QList<QTextOption::Tab> stops;
    if (tabs == 0) return stops;
    const double width = QFontMetricsF(format.font()).horizontalAdvance(QLatin1Char('0'));
    const qsizetype count = letters / columns_of_tab + tabs;
    for (qsizetype i = 1; i <= count; ++i)
        stops.append(QTextOption::Tab(static_cast<double>(i) * columns_of_tab * width, QTextOption::LeftTab));
    return stops;
}

/// `leading` is the format of the line's first run.
QTextBlockFormat block_format_of(const styled_line& line, const QTextCharFormat& leading)
{
    QTextBlockFormat format;
    if (!is_fixed_width(line)) return format;
    format.setNonBreakableLines(is_table_row(line));
    if (const QList<QTextOption::Tab> stops = column_tabs(line, leading); !stops.isEmpty())
        format.setTabPositions(stops);
    return format;
}

/// Splits a run so that the line under a "Q" is left out: it would run through the tail, and the letter would read "O".
std::vector<styled_run> with_line_below_spared(const styled_run& run)
{
    std::vector<styled_run> parts;
    const bool has_tail = run.underline && run.text.find('Q') != run.text.npos;
    for (const char byte : has_tail ? std::string_view(run.text) : std::string_view()) {
        const bool underlined = byte != 'Q';
        if (parts.empty() || parts.back().underline != underlined) {
            parts.push_back(run);
            parts.back().text.clear();
            parts.back().underline = underlined;
        }
        parts.back().text += byte;
    }
    if (parts.empty()) parts.push_back(run);
    return parts;
}

/// The text of a run, with blanks for the characters that the toolkit would treat as the end of a block.
QString shown_text(const styled_run& run)
{
    QString text = to_qstring(run.text);
    const auto ends_block = [](QChar letter) {
        return letter == QChar::ParagraphSeparator || letter == QChar::LineSeparator ||
               letter == QChar::ObjectReplacementCharacter || letter == QChar(0xFDD0) || letter == QChar(0xFDD1);
    };
    std::ranges::replace_if(text, ends_block, QChar(QLatin1Char(' ')));
    return text;
}

/// The width of a line of text on the page, in pixels of the document.
double width_of_text(const QPagedPaintDevice& device)
{
    constexpr double margins_in_inches = 2 * 2.0 / 2.54; // those that the toolkit leaves around pages
    // Advances on paper differ slightly from those measured for the screen.
    constexpr double part_taken = 0.98;
    const double inches = device.pageLayout().paintRect(QPageLayout::Inch).width() - margins_in_inches;
    return inches * pixels_per_inch() * part_taken;
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

void fill_document(QTextDocument& document, std::span<const styled_line> lines, double zoom)
{
    document.setUndoRedoEnabled(false);
    document.clear();
    QTextOption option = document.defaultTextOption();
    option.setTabStopDistance(tab_distance / 20.0 / points_per_inch * pixels_per_inch() * zoom);
    option.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
    document.setDefaultTextOption(option);

    format_maker formats(zoom);
    QTextCursor cursor(&document);
    cursor.beginEditBlock();
    bool first = true;
    for (const styled_line& line : lines) {
        const QTextCharFormat leading = formats.of(line.empty() ? styled_run{} : line.front());
        const QTextBlockFormat block = block_format_of(line, leading);
        if (first) {
            cursor.setBlockFormat(block);
            cursor.setBlockCharFormat(leading);
        } else {
            cursor.insertBlock(block, leading);
        }
        first = false;
        for (const styled_run& run : line) {
            for (const styled_run& part : with_line_below_spared(run))
                cursor.insertText(shown_text(part), formats.of(part));
        }
    }
    cursor.endEditBlock();
}

double widest_row(const QTextDocument& document)
{
    // Requesting the last block lays out all blocks.
    static_cast<void>(document.documentLayout()->blockBoundingRect(document.lastBlock()));
    double widest = 0.0;
    for (QTextBlock block = document.begin(); block.isValid(); block = block.next()) {
        if (!block.blockFormat().nonBreakableLines()) continue;
        for (int i = 0; i < block.layout()->lineCount(); ++i)
            widest = std::max(widest, block.layout()->lineAt(i).naturalTextWidth());
    }
    return widest;
}

std::vector<styled_line> selected_lines(std::span<const styled_line> lines, const QTextCursor& selection)
{
    std::vector<styled_line> part;
    if (!selection.hasSelection()) return part;
    const QTextDocument& document = *selection.document();
    const QTextBlock first = document.findBlock(selection.selectionStart());
    const QTextBlock last = document.findBlock(selection.selectionEnd());
    for (QTextBlock block = first; block.isValid() && block.position() <= last.position(); block = block.next()) {
        const auto number = static_cast<std::size_t>(block.blockNumber());
        if (number >= lines.size()) break;
        const int from = std::max(selection.selectionStart() - block.position(), 0);
        const int to = std::min(selection.selectionEnd() - block.position(), block.length() - 1);
        part.push_back(part_of_line(lines[number], from, to));
    }
    return part;
}

void print_lines(QPagedPaintDevice& device, std::span<const styled_line> lines)
{
    QTextDocument document;
    document.setUseDesignMetrics(true);
    fill_document(document, lines);
    const double widest = widest_row(document);
    const double page = room_on_page(device, widest * smallest_print);
    if (widest * smallest_print > page) {
        fill_document(document, in_blocks_of_columns(lines, [page](const styled_run& run) {
                          const QFontMetricsF metrics(format_of(run, 1.0).font());
                          return static_cast<int>(page / metrics.horizontalAdvance(QLatin1Char('0')));
                      }));
    } else if (widest > page) {
        fill_document(document, lines, page / widest);
    }
    document.print(&device);
}

std::string pdf_of(std::span<const styled_line> lines, const QString& title)
{
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    QPdfWriter writer(&buffer);
    writer.setTitle(title);
    writer.setCreator(QStringLiteral("Kelvarin"));
    writer.setPageSize(QPageSize(QPageSize::A4));
    print_lines(writer, lines);
    return bytes.toStdString();
}

} // namespace kelvarin
