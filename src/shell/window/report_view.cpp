// SPDX-License-Identifier: MIT
#include "shell/window/report_view.h"

#include "desktop/command_keys.h"
#include "desktop/look.h"
#include "shell/window/report_cells.h"
#include "shell/window/report_document.h"

#include <QAbstractTextDocumentLayout>
#include <QContextMenuEvent>
#include <QElapsedTimer>
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
/// Some screens of text.
constexpr std::size_t letters_at_first = 30'000;
/// The longest text that the toolkit lays out without a pause that is felt.
constexpr int longest_at_once = 60'000;

} // namespace

report_view::report_view(QWidget* parent) : QTextBrowser(parent)
{
    setOpenLinks(false);
    setUndoRedoEnabled(false);
    setFrameShape(QFrame::NoFrame);
    setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    // As soon as there is nothing else to do.
    fill_timer_.setInterval(0);
    connect(&fill_timer_, &QTimer::timeout, this, &report_view::fill_on);
    apply_palette();
}

void report_view::set_lines(std::vector<styled_line> lines)
{
    lines_ = std::move(lines);
    widest_row_ = 0.0;
    fill();
    moveCursor(QTextCursor::Start);
    verticalScrollBar()->setValue(0);
}

std::vector<styled_line> report_view::marked_lines() const
{
    if (!filler_) return {};
    const QTextCursor marked = textCursor();
    const bool to_end = !is_filled() && marked.selectionEnd() == document()->characterCount() - 1;
    return selected_lines(lines_, filler_->blocks(), marked, to_end);
}

report_view::view_place report_view::present_place() const
{
    if (wanted_place_) return *wanted_place_;
    const QTextCursor marked = textCursor();
    return {.top = cursorForPosition(QPoint(0, 0)).position(),
            .anchor = marked.anchor(),
            .position = marked.position(),
            .at_start = verticalScrollBar()->value() == 0};
}

void report_view::go_back_to(const view_place& place)
{
    const int last = document()->characterCount() - 1;
    const int needed = std::max({place.at_start ? 0 : place.top, place.anchor, place.position});
    if (needed > last && !is_filled()) {
        wanted_place_ = place;
        return;
    }
    wanted_place_.reset();
    QTextCursor again(document());
    again.setPosition(std::min(place.anchor, last));
    again.setPosition(std::min(place.position, last), QTextCursor::KeepAnchor);
    setTextCursor(again);
    const QRectF block =
        document()->documentLayout()->blockBoundingRect(document()->findBlock(std::min(place.top, last)));
    verticalScrollBar()->setValue(place.at_start ? 0 : static_cast<int>(block.top()));
}

void report_view::set_zoom(double zoom)
{
    zoom = std::clamp(zoom, zoom_steps.front(), zoom_steps.back());
    if (zoom == zoom_) return;
    zoom_ = zoom;
    const view_place place = present_place();
    widest_row_ = 0.0;
    fill();
    go_back_to(place);
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
    wanted_place_.reset();
    filler_.emplace(*document(), lines_, zoom_);
    // Margins are set before the text is there, so that one layout is enough if no table row is too wide for them.
    document()->rootFrame()->setFrameFormat(sheet_format());
    // A document in a widget that was never shown has no width and is not laid out.
    if (document()->pageSize().isNull()) document()->setTextWidth(viewport()->width());
    filler_->add(letters_at_first);
    if (filler_->widest_row() > widest_row_) {
        widest_row_ = filler_->widest_row();
        document()->rootFrame()->setFrameFormat(sheet_format());
    }
    viewport()->update();
    fill_timer_.stop();
    if (!is_filled()) fill_timer_.start();
}

void report_view::fill_on()
{
    constexpr int milliseconds_at_once = 15;
    constexpr std::size_t letters_between_looks = 2000;
    QElapsedTimer clock;
    clock.start();
    while (!is_filled() && clock.elapsed() < milliseconds_at_once)
        filler_->add(letters_between_looks);
    if (is_filled()) fill_timer_.stop();
    if (filler_->widest_row() > widest_row_) {
        // More than is needed, since each wider row starts the layout of a long text anew.
        constexpr double ahead = 1.2;
        widest_row_ = filler_->widest_row() * ahead;
        lay_out_sheet();
    }
    if (wanted_place_) go_back_to(*wanted_place_);
}

void report_view::lay_out_sheet()
{
    const QTextFrameFormat format = sheet_format();
    viewport()->update();
    if (format == document()->rootFrame()->frameFormat()) return;
    // The toolkit would lay out all of the text before it goes on.
    if (document()->characterCount() > longest_at_once) {
        const view_place place = present_place();
        fill();
        go_back_to(place);
    } else {
        document()->rootFrame()->setFrameFormat(format);
    }
}

QTextFrameFormat report_view::sheet_format()
{
    const double room = viewport()->width() - 2.0 * ground();
    const double text = std::max(readable_width * logicalDpiX() * zoom_, widest_row_);
    // In a narrow window the margins shrink first, then the text wraps; tables scroll.
    const double padding =
        std::clamp((room - text) / 2, static_cast<double>(ground()), sheet_padding * logicalDpiX() * zoom_);
    sheet_width_ = std::max(std::min(room, text + 2 * padding), widest_row_ + 2 * padding);
    sheet_left_ = std::max<double>(ground(), (viewport()->width() - sheet_width_) / 2);

    QTextFrameFormat format = document()->rootFrame()->frameFormat();
    format.setLeftMargin(sheet_left_ + padding);
    format.setRightMargin(std::max<double>(ground(), viewport()->width() - sheet_left_ - sheet_width_) + padding);
    format.setTopMargin(ground() + padding);
    format.setBottomMargin(ground() + padding);
    return format;
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
