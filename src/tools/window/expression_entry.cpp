// SPDX-License-Identifier: MIT
#include "tools/window/expression_entry.h"

#include "desktop/length_guard.h"
#include "desktop/look.h"
#include "desktop/qt_text.h"

#include <QKeyEvent>
#include <QMimeData>
#include <QTextBlock>

#include <cmath>
#include <string_view>

namespace kelvarin
{

namespace
{

/// Number of visible lines.
constexpr int shown_lines = 3;

/// Number of UTF-16 units in the first `bytes` bytes of a text.
int letters_in(std::string_view text, std::size_t bytes)
{
    return static_cast<int>(to_qstring(text.substr(0, bytes)).size());
}

} // namespace

expression_entry::expression_entry(QWidget* parent) : QTextEdit(parent)
{
    // Pasted text takes the format of the field.
    setAcceptRichText(false);
    // Tab moves the focus; lines contain no tabs.
    setTabChangesFocus(true);
}

std::string expression_entry::expression() const
{
    return to_text(toPlainText());
}

void expression_entry::replace_expression(const std::string& text)
{
    QTextCursor cursor(document());
    cursor.select(QTextCursor::Document);
    cursor.insertText(to_qstring(text));
    setTextCursor(cursor);
}

void expression_entry::insert_at_caret(const QString& text, int back)
{
    QTextCursor cursor = textCursor();
    cursor.insertText(text);
    cursor.movePosition(QTextCursor::Left, QTextCursor::MoveAnchor, back);
    setTextCursor(cursor);
}

void expression_entry::mark_fault(const std::optional<byte_range>& place)
{
    QList<ExtraSelection> marks;
    if (place) {
        const std::string text = expression();
        ExtraSelection mark;
        mark.cursor = QTextCursor(document());
        mark.cursor.setPosition(letters_in(text, place->offset));
        mark.cursor.setPosition(letters_in(text, place->offset + place->length), QTextCursor::KeepAnchor);
        mark.format.setUnderlineStyle(QTextCharFormat::WaveUnderline);
        mark.format.setUnderlineColor(fault_colour(palette()));
        marks.append(mark);
    }
    setExtraSelections(marks);
}

QSize expression_entry::sizeHint() const
{
    const double frame = 2.0 * (document()->documentMargin() + frameWidth());
    return QSize(QFontMetrics(font()).averageCharWidth() * 20,
                 QFontMetrics(font()).lineSpacing() * shown_lines + static_cast<int>(std::ceil(frame)));
}

bool expression_entry::is_single_line() const
{
    return document()->blockCount() == 1 && document()->firstBlock().text().indexOf(QChar::LineSeparator) < 0;
}

void expression_entry::insertFromMimeData(const QMimeData* source)
{
    QMimeData bounded;
    const qsizetype kept = document()->characterCount() - textCursor().selectedText().size();
    bounded.setText(pasted_text(*this, *source, kept));
    QTextEdit::insertFromMimeData(&bounded);
}

void expression_entry::keyPressEvent(QKeyEvent* event)
{
    const Qt::KeyboardModifiers modifiers = event->modifiers() & ~Qt::KeypadModifier;
    const bool plain = modifiers == Qt::NoModifier;
    switch (event->key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
        if (modifiers == Qt::ControlModifier || (plain && return_solves_))
            emit solve_requested();
        else
            textCursor().insertBlock();
        ensureCursorVisible();
        return;
    case Qt::Key_Up:
        if (plain && is_single_line()) return emit earlier_requested();
        break;
    case Qt::Key_Down:
        if (plain && is_single_line()) return emit later_requested();
        break;
    default:
        break;
    }
    QTextEdit::keyPressEvent(event);
}

} // namespace kelvarin
