// SPDX-License-Identifier: MIT
#include "tools/window/history_view.h"

#include "desktop/look.h"
#include "desktop/qt_text.h"

#include <QAbstractTextDocumentLayout>
#include <QApplication>
#include <QKeyEvent>
#include <QMimeData>
#include <QScrollBar>
#include <QTextBlock>
#include <QTextDocumentFragment>
#include <QTextFrame>

#include <algorithm>
#include <cmath>
#include <memory>

namespace kelvarin
{

namespace
{

/// The colours of reports, made for white paper; on a dark background they are mixed with the text colour.
QTextCharFormat format_of(history_piece_kind kind, const QPalette& palette)
{
    const QColor text = palette.color(QPalette::Text);
    const auto on_ground = [&](const QColor& on_paper) { return mixed(on_paper, text, is_dark(palette) ? 0.55 : 0.0); };
    QTextCharFormat format;
    switch (kind) {
    case history_piece_kind::prompt:
        format.setForeground(on_ground(QColor(0, 128, 0)));
        format.setFontWeight(QFont::Bold);
        break;
    case history_piece_kind::text:
        format.setForeground(text);
        break;
    case history_piece_kind::operator_sign:
        format.setForeground(on_ground(QColor(0, 0, 160)));
        break;
    case history_piece_kind::parenthesis:
        format.setForeground(on_ground(QColor(254, 0, 0)));
        break;
    case history_piece_kind::value:
        format.setForeground(on_ground(QColor(128, 0, 128)));
        break;
    }
    return format;
}

} // namespace

history_view::history_view(QWidget* parent) : QTextEdit(parent)
{
    setReadOnly(true);
    setUndoRedoEnabled(false);
    setTabChangesFocus(true);
    setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    connect(document()->documentLayout(), &QAbstractTextDocumentLayout::documentSizeChanged, this,
            &history_view::stand_on_lower_edge);
}

void history_view::show_entries(const std::vector<history_entry>& entries)
{
    entries_ = entries;
    recolour();
}

void history_view::add_entry(const history_entry& entry)
{
    entries_.push_back(entry);
    write(entry);
    scroll_to_end();
}

void history_view::write(const history_entry& entry)
{
    QTextCursor cursor(document());
    cursor.movePosition(QTextCursor::End);
    cursor.beginEditBlock();
    if (!document()->isEmpty()) cursor.insertBlock();
    for (const history_piece& piece : pieces_of_entry(entry))
        cursor.insertText(to_qstring(piece.text), format_of(piece.kind, palette()));
    cursor.endEditBlock();
}

void history_view::recolour()
{
    clear();
    for (const history_entry& entry : entries_)
        write(entry);
    scroll_to_end();
}

void history_view::scroll_to_end()
{
    verticalScrollBar()->setValue(verticalScrollBar()->maximum());
}

void history_view::stand_on_lower_edge()
{
    QTextFrame* paper = document()->rootFrame();
    QTextFrameFormat format = paper->frameFormat();
    const double least = document()->documentMargin();
    const double free = viewport()->height() - (document()->size().height() - format.topMargin());
    // Floor: rounding must not make the document higher than the view.
    const double margin = entries_.empty() ? least : std::max(least, std::floor(free));
    if (qFuzzyCompare(1.0 + margin, 1.0 + format.topMargin())) return;
    format.setTopMargin(margin);
    paper->setFrameFormat(format);
}

QString history_view::selected_text() const
{
    return textCursor().selection().toPlainText();
}

QString history_view::whole_text() const
{
    return document()->isEmpty() ? QString() : toPlainText() + QLatin1Char('\n');
}

QMimeData* history_view::createMimeDataFromSelection() const
{
    auto content = std::make_unique<QMimeData>();
    content->setText(selected_text());
    return content.release();
}

void history_view::changeEvent(QEvent* event)
{
    QTextEdit::changeEvent(event);
    if (event->type() == QEvent::PaletteChange && !entries_.empty()) recolour();
    if (event->type() == QEvent::FontChange) stand_on_lower_edge();
}

void history_view::resizeEvent(QResizeEvent* event)
{
    const bool at_end = verticalScrollBar()->value() == verticalScrollBar()->maximum();
    QTextEdit::resizeEvent(event);
    stand_on_lower_edge();
    if (at_end) scroll_to_end();
}

void history_view::keyPressEvent(QKeyEvent* event)
{
    // The window copies, as for the button.
    if (event->matches(QKeySequence::Copy)) return emit copy_requested();
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) {
        if (!entries_.empty()) emit entry_chosen(textCursor().blockNumber());
        return;
    }
    QTextEdit::keyPressEvent(event);
}

void history_view::mousePressEvent(QMouseEvent* event)
{
    pressed_at_ = event->pos();
    QTextEdit::mousePressEvent(event);
}

void history_view::mouseReleaseEvent(QMouseEvent* event)
{
    QTextEdit::mouseReleaseEvent(event);
    const bool moved = (event->pos() - pressed_at_).manhattanLength() >= QApplication::startDragDistance();
    // A drag or double click selects text for copying and doesn't choose the entry.
    if (event->button() != Qt::LeftButton || moved || textCursor().hasSelection() || entries_.empty()) return;
    const QTextBlock block = cursorForPosition(event->pos()).block();
    const QRectF written = document()->documentLayout()->blockBoundingRect(block);
    if (written.contains(written.center().x(), event->pos().y() + verticalScrollBar()->value()))
        emit entry_chosen(block.blockNumber());
}

} // namespace kelvarin
