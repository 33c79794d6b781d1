// SPDX-License-Identifier: MIT
#include "shell/window/report_view.h"

#include "desktop/command_keys.h"
#include "desktop/look.h"
#include "shell/window/report_cells.h"
#include "shell/window/report_document.h"

#include <QAbstractTextDocumentLayout>
#include <QContextMenuEvent>
#include <QKeyEvent>
#include <QPainter>
#include <QScrollBar>
#include <QTextBlock>
#include <QTextFrame>
#include <QWheelEvent>

#include <algorithm>
#include <array>
#include <cstdlib>

namespace kelvarin
{

namespace
{

constexpr std::array zoom_steps = {0.5, 0.67, 0.8, 0.9, 1.0, 1.1, 1.25, 1.5, 1.75, 2.0, 2.5, 3.0, 4.0};
/// Width of the text in inches: about 90 characters.
constexpr double readable_width = 5.9;
constexpr double sheet_padding = 0.7;
constexpr int wheel_notch = 120;

} // namespace

report_view::report_view(QWidget* parent) : QTextBrowser(parent)
{
    setOpenLinks(false);
    setUndoRedoEnabled(false);
    setFrameShape(QFrame::NoFrame);
    setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    apply_palette();
}

void report_view::set_lines(std::vector<styled_line> lines)
{
    lines_ = std::move(lines);
    fill();
    moveCursor(QTextCursor::Start);
    verticalScrollBar()->setValue(0);
}

std::vector<styled_line> report_view::marked_lines() const
{
    return selected_lines(lines_, textCursor());
}

void report_view::set_zoom(double zoom)
{
    zoom = std::clamp(zoom, zoom_steps.front(), zoom_steps.back());
    if (zoom == zoom_) return;
    zoom_ = zoom;
    const int top = cursorForPosition(QPoint(0, 0)).position();
    const bool at_start = verticalScrollBar()->value() == 0;
    const QTextCursor marked = textCursor();
    const int anchor = marked.anchor();
    const int position = marked.position();
    fill();
    QTextCursor again(document());
    again.setPosition(anchor);
    again.setPosition(position, QTextCursor::KeepAnchor);
    setTextCursor(again);
    const QRectF block = document()->documentLayout()->blockBoundingRect(document()->findBlock(top));
    verticalScrollBar()->setValue(at_start ? 0 : static_cast<int>(block.top()));
    emit zoom_changed();
}

void report_view::step_zoom(bool larger)
{
    // A zoom between the steps goes to the next step.
    constexpr double close = 0.005;
    if (larger) {
        const auto* next = std::ranges::find_if(zoom_steps, [&](double step) { return step > zoom_ + close; });
        if (next != zoom_steps.end()) set_zoom(*next);
        return;
    }
    const auto next =
        std::find_if(zoom_steps.rbegin(), zoom_steps.rend(), [&](double step) { return step < zoom_ - close; });
    if (next != zoom_steps.rend()) set_zoom(*next);
}

QSize report_view::sizeHint() const
{
    const int width = static_cast<int>((readable_width + 2 * sheet_padding) * logicalDpiX());
    return {width + 2 * ground() + verticalScrollBar()->sizeHint().width(), width * 4 / 5};
}

int report_view::ground() const
{
    return line_unit(*this);
}

void report_view::fill()
{
    fill_document(*document(), lines_, zoom_);
    // Margins are set before measuring, so that one layout is enough if no table row is too wide for them.
    widest_row_ = 0.0;
    lay_out_sheet();
    // A document in a widget that was never shown has no width and is not laid out.
    if (document()->pageSize().isNull()) document()->setTextWidth(viewport()->width());
    widest_row_ = widest_row(*document());
    lay_out_sheet();
}

void report_view::lay_out_sheet()
{
    const double room = viewport()->width() - 2.0 * ground();
    const double text = std::max(readable_width * logicalDpiX() * zoom_, widest_row_);
    // In a narrow window the margins shrink first, then the text wraps; tables scroll.
    const double padding =
        std::clamp((room - text) / 2, static_cast<double>(ground()), sheet_padding * logicalDpiX() * zoom_);
    sheet_width_ = std::max(std::min(room, text + 2 * padding), widest_row_ + 2 * padding);
    sheet_left_ = std::max<double>(ground(), (viewport()->width() - sheet_width_) / 2);

    const QTextFrameFormat present = document()->rootFrame()->frameFormat();
    QTextFrameFormat format = present;
    format.setLeftMargin(sheet_left_ + padding);
    format.setRightMargin(std::max<double>(ground(), viewport()->width() - sheet_left_ - sheet_width_) + padding);
    format.setTopMargin(ground() + padding);
    format.setBottomMargin(ground() + padding);
    if (format != present) document()->rootFrame()->setFrameFormat(format);
    viewport()->update();
}

void report_view::apply_palette()
{
    if (applying_palette_) return;
    applying_palette_ = true;
    QPalette colours = palette();
    const QColor window = colours.color(QPalette::Window);
    colours.setColor(QPalette::Base, mixed(window, colours.color(QPalette::Shadow), 0.15));
    // The text cursor is drawn in this colour on white paper; reports set their own colours.
    colours.setColor(QPalette::Text, Qt::black);
    setPalette(colours);
    applying_palette_ = false;
}

bool report_view::event(QEvent* event)
{
    // Copy and Select All are commands of the main window.
    if (asks_for_command_key(*event, {QKeySequence::Copy, QKeySequence::SelectAll})) {
        event->ignore();
        return false;
    }
    return QTextBrowser::event(event);
}

void report_view::changeEvent(QEvent* event)
{
    QTextBrowser::changeEvent(event);
    if (event->type() == QEvent::PaletteChange) apply_palette();
    if (event->type() == QEvent::FontChange) lay_out_sheet();
}

void report_view::contextMenuEvent(QContextMenuEvent* event)
{
    emit menu_asked(event->globalPos());
    event->accept();
}

void report_view::keyPressEvent(QKeyEvent* event)
{
    if (event->matches(QKeySequence::Copy)) {
        emit copy_asked();
        event->accept();
        return;
    }
    QTextBrowser::keyPressEvent(event);
}

void report_view::paintEvent(QPaintEvent* event)
{
    {
        QPainter painter(viewport());
        const double height = document()->documentLayout()->documentSize().height() - 2.0 * ground();
        QRectF sheet(sheet_left_, ground(), sheet_width_, std::max(height, 0.0));
        sheet.translate(-horizontalScrollBar()->value(), -verticalScrollBar()->value());
        painter.fillRect(sheet, Qt::white);
        painter.setPen(mixed(palette().color(QPalette::Base), palette().color(QPalette::Shadow), 0.25));
        painter.drawRect(sheet.adjusted(-1, -1, 0, 0).toAlignedRect());
    }
    QTextBrowser::paintEvent(event);
}

void report_view::resizeEvent(QResizeEvent* event)
{
    QTextBrowser::resizeEvent(event);
    lay_out_sheet();
}

void report_view::wheelEvent(QWheelEvent* event)
{
    if (!event->modifiers().testFlag(Qt::ControlModifier)) {
        QTextBrowser::wheelEvent(event);
        return;
    }
    wheel_travel_ += event->angleDelta().y();
    if (std::abs(wheel_travel_) >= wheel_notch) {
        step_zoom(wheel_travel_ > 0);
        wheel_travel_ = 0;
    }
    event->accept();
}

QMimeData* report_view::createMimeDataFromSelection() const
{
    // The caller takes ownership.
    return clipboard_content(marked_lines()).release();
}

} // namespace kelvarin
