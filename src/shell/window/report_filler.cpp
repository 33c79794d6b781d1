// SPDX-License-Identifier: MIT
#include "shell/window/report_filler.h"

#include "desktop/look.h"
#include "desktop/qt_text.h"
#include "shell/window/report_cells.h"

#include <QFontMetricsF>
#include <QGuiApplication>
#include <QScreen>
#include <QTextBlock>
#include <QTextOption>

#include <algorithm>
#include <cmath>
#include <limits>
#include <string_view>
#include <utility>

namespace kelvarin
{

namespace
{

constexpr double points_per_inch = 72.0;
/// Tab stops in fixed-width lines.
constexpr int columns_of_tab = 8;

QFont::StyleHint hint_of(font_class family)
{
    if (family == font_class::serif) return QFont::Serif;
    return family == font_class::sans ? QFont::SansSerif : QFont::Monospace;
}

QString text_of(const styled_line& line)
{
    QString text;
    for (const styled_run& run : line)
        text += to_qstring(run.text);
    return text;
}

/// Tab stops at every eighth column, for lines entirely in fixed width.
QList<QTextOption::Tab> column_tabs(const styled_line& line, double width_of_digit)
{
    // Lines of about the same length share their stops.
    constexpr qsizetype stops_at_once = 32;
    const QString text = text_of(line);
    const qsizetype tabs = text.count(QLatin1Char('\t'));
    QList<QTextOption::Tab> stops;
    if (tabs == 0) return stops;
    const qsizetype needed = text.size() / columns_of_tab + tabs;
    const qsizetype count = (needed + stops_at_once - 1) / stops_at_once * stops_at_once;
    stops.reserve(count);
    for (qsizetype i = 1; i <= count; ++i)
        stops.append(QTextOption::Tab(static_cast<double>(i) * columns_of_tab * width_of_digit, QTextOption::LeftTab));
    return stops;
}

/// The width of a row's text without blanks at its end, in pixels.
double width_of_row(const styled_line& row, double width_of_digit, const QTextCharFormat& leading)
{
    const QFontMetricsF metrics(leading.font());
    double width = 0.0;
    double width_of_text = 0.0;
    for (const QChar letter : text_of(row)) {
        if (letter == QLatin1Char('\t')) {
            const double stop = columns_of_tab * width_of_digit;
            width = (std::floor(width / stop) + 1.0) * stop;
            continue;
        }
        width += letter.unicode() < 0x80 ? width_of_digit : metrics.horizontalAdvance(letter);
        if (letter != QLatin1Char(' ')) width_of_text = width;
    }
    return width_of_text;
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

} // namespace

double document_pixels_per_inch()
{
    const QScreen* screen = QGuiApplication::primaryScreen();
    return screen ? screen->logicalDotsPerInchY() : 96.0;
}

QTextCharFormat text_format_of(const styled_run& run, double zoom)
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

run_format::run_format(double zoom) : zoom_(zoom)
{
    format_ = text_format_of(last_, zoom_);
    width_of_digit_ = QFontMetricsF(format_.font()).horizontalAdvance(QLatin1Char('0'));
}

const QTextCharFormat& run_format::of(const styled_run& run)
{
    styled_run style = run;
    style.text.clear();
    if (style == last_) return format_;
    last_ = std::move(style);
    format_ = text_format_of(last_, zoom_);
    width_of_digit_ = QFontMetricsF(format_.font()).horizontalAdvance(QLatin1Char('0'));
    return format_;
}

double widest_row(std::span<const styled_line> lines)
{
    run_format format(1.0);
    double widest = 0.0;
    for (piece_reader reader(lines); !reader.at_end();) {
        const styled_line row = reader.next().part;
        if (row.empty() || !is_table_row(row)) continue;
        const QTextCharFormat leading = format.of(row.front());
        widest = std::max(widest, width_of_row(row, format.width_of_digit(), leading));
    }
    return widest;
}

document_filler::document_filler(QTextDocument& document, std::span<const styled_line> lines, double zoom)
    : cursor_(&document), reader_(lines), format_(zoom)
{
    document.setUndoRedoEnabled(false);
    document.clear();
    cursor_.movePosition(QTextCursor::Start);
    QTextOption option = document.defaultTextOption();
    option.setTabStopDistance(tab_distance / 20.0 / points_per_inch * document_pixels_per_inch() * zoom);
    option.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
    document.setDefaultTextOption(option);
}

void document_filler::add_piece(const report_piece& piece)
{
    const QTextCharFormat leading = format_.of(piece.part.empty() ? styled_run{} : piece.part.front());
    const double width_of_digit = format_.width_of_digit();
    QTextBlockFormat block;
    if (is_fixed_width(piece.part)) {
        const bool is_row = is_table_row(piece.part);
        block.setNonBreakableLines(is_row);
        if (const QList<QTextOption::Tab> stops = column_tabs(piece.part, width_of_digit); !stops.isEmpty())
            block.setTabPositions(stops);
        if (is_row) widest_row_ = std::max(widest_row_, width_of_row(piece.part, width_of_digit, leading));
    }
    if (blocks_.empty()) {
        cursor_.setBlockFormat(block);
        cursor_.setBlockCharFormat(leading);
    } else {
        cursor_.insertBlock(block, leading);
    }
    for (const styled_run& run : piece.part) {
        for (const styled_run& part : with_line_below_spared(run))
            cursor_.insertText(shown_text(part), format_.of(part));
    }
    blocks_.push_back({piece.line, piece.from});
}

void document_filler::add(std::size_t letters)
{
    // What a block costs beside its letters.
    constexpr std::size_t letters_of_block = 40;
    constexpr std::size_t letters_of_run = 10;
    cursor_.beginEditBlock();
    for (std::size_t added = 0; added < letters && !at_end();) {
        const report_piece piece = reader_.next();
        add_piece(piece);
        added += letters_of_block;
        for (const styled_run& run : piece.part)
            added += letters_of_run + run.text.size();
    }
    cursor_.endEditBlock();
}

void fill_document(QTextDocument& document, std::span<const styled_line> lines)
{
    document_filler filler(document, lines, 1.0);
    filler.add(std::numeric_limits<std::size_t>::max());
}

} // namespace kelvarin
