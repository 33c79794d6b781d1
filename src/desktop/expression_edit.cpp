// SPDX-License-Identifier: MIT
#include "desktop/expression_edit.h"

#include "desktop/expression_highlighter.h"
#include "desktop/length_guard.h"
#include "desktop/look.h"
#include "desktop/qt_text.h"
#include "desktop/text_spans.h"
#include "expr/basParse.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QCompleter>
#include <QKeyEvent>
#include <QMimeData>
#include <QScrollBar>
#include <QStringListModel>
#include <QTextBlock>

#include <algorithm>
#include <utility>

namespace kelvarin
{

namespace
{

constexpr int lines_shown = 3;

/// The functions that equations may use. Others would be variables there, so they are not offered.
QStringList function_names()
{
    QStringList names;
    for (const operation_row& row : operation_rows())
        if (is_function_name(row.spelling) && is_equation_word(row.spelling)) names.append(to_qstring(row.spelling));
    return names;
}

bool is_letter_of_name(QChar letter)
{
    return letter.unicode() < 0x80 && (letter.isLetterOrNumber() || letter == QLatin1Char('_'));
}

bool leaves_the_list(const QKeyEvent& event)
{
    switch (event.key()) {
    case Qt::Key_Tab:
    case Qt::Key_Backtab:
    case Qt::Key_Return:
    case Qt::Key_Enter:
        return true;
    default:
        return false;
    }
}

} // namespace

expression_edit::expression_edit(QWidget* parent)
    : QPlainTextEdit(parent), highlighter_(new expression_highlighter(document(), palette()))
{
    setFont(fixed_font(*this));
    setTabChangesFocus(true);
    setVerticalScrollBarPolicy(Qt::ScrollBarAsNeeded);
    pause_.setSingleShot(true);
    pause_.setInterval(333);
    build_completer();
    connect(&pause_, &QTimer::timeout, this, &expression_edit::paused);
    connect(this, &QPlainTextEdit::textChanged, this, &expression_edit::text_changed);
}

void expression_edit::build_completer()
{
    completer_ = new QCompleter(this);
    offered_ = new QStringListModel(completer_);
    completer_->setModel(offered_);
    completer_->setWidget(this);
    completer_->setCaseSensitivity(Qt::CaseInsensitive);
    completer_->setModelSorting(QCompleter::CaseInsensitivelySortedModel);
    list_ = completer_->popup();
    list_->setObjectName(QStringLiteral("lstCompletions"));
    list_->setAccessibleName(tr("Functions and variables"));
    list_->setFont(font());
    // Installed after the completer's own filter, and so called before it.
    list_->installEventFilter(this);
    set_names({});
    connect(completer_, qOverload<const QString&>(&QCompleter::activated), this, &expression_edit::complete);
    // The completer hides the loss of focus from this field while the list is open.
    connect(qApp, &QApplication::focusChanged, this, [this](const QWidget*, const QWidget* now) {
        if (now && now != this) stop_completing();
    });
}

std::string expression_edit::expression() const
{
    QString text = toPlainText();
    for (QChar& letter : text)
        if (letter == QLatin1Char('\n') || letter == QLatin1Char('\r') || letter == QLatin1Char('\t') ||
            letter == QChar::LineSeparator)
            letter = QLatin1Char(' ');
    return to_text(text);
}

void expression_edit::set_expression(std::string_view text)
{
    setPlainText(to_qstring(text));
}

void expression_edit::set_one_line()
{
    one_line_ = true;
    setFrameShape(QFrame::NoFrame);
    setLineWrapMode(NoWrap);
    setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
}

void expression_edit::set_names(const QStringList& names)
{
    QStringList all = function_names() + names;
    all.sort(Qt::CaseInsensitive);
    all.removeDuplicates();
    offered_->setStringList(all);
}

void expression_edit::mark_place(const std::optional<text_place>& place)
{
    mark_ = place;
    show_marks();
}

void expression_edit::mark_undefined(std::vector<text_place> places)
{
    undefined_ = std::move(places);
    show_marks();
}

void expression_edit::show_marks()
{
    QList<QTextEdit::ExtraSelection> marks;
    for (const text_place& place : undefined_)
        marks.append({cursor_at(place), span_format(text_meaning::undefined, palette())});
    if (mark_) {
        QTextCursor marked = cursor_at(*mark_);
        // An empty place is shown at the character before it.
        if (!marked.hasSelection()) marked.movePosition(QTextCursor::PreviousCharacter, QTextCursor::KeepAnchor);
        marks.append({marked, span_format(text_meaning::marked, palette())});
    }
    setExtraSelections(marks);
}

void expression_edit::select_place(const text_place& place)
{
    mark_place(place);
    setTextCursor(cursor_at(place));
}

QTextCursor expression_edit::cursor_at(const text_place& place) const
{
    const text_span span = span_of(expression(), place.offset, place.length, text_meaning::marked);
    QTextCursor caret(document());
    caret.setPosition(span.start);
    caret.setPosition(span.start + span.length, QTextCursor::KeepAnchor);
    return caret;
}

QSize expression_edit::minimumSizeHint() const
{
    const int lines = lines_shown * fontMetrics().lineSpacing();
    const int frame = 2 * (frameWidth() + static_cast<int>(document()->documentMargin()));
    return {QPlainTextEdit::minimumSizeHint().width(), lines + frame};
}

QSize expression_edit::sizeHint() const
{
    constexpr int letters_shown = 56;
    return {letters_shown * fontMetrics().horizontalAdvance(QLatin1Char('0')), minimumSizeHint().height()};
}

void expression_edit::text_changed()
{
    // Changes of tints are signalled as changes of text too.
    const QString text = toPlainText();
    if (text == text_before_) return;
    text_before_ = text;
    mark_place(std::nullopt);
    pause_.start();
}

bool expression_edit::is_completing() const
{
    return list_->isVisible();
}

void expression_edit::stop_completing()
{
    list_->hide();
}

QString expression_edit::name_before_caret() const
{
    const QString text = textCursor().block().text();
    const int caret = textCursor().positionInBlock();
    if (caret < text.size() && is_letter_of_name(text[caret])) return {};
    int start = caret;
    while (start > 0 && is_letter_of_name(text[start - 1]))
        --start;
    const QString name = text.mid(start, caret - start);
    return !name.isEmpty() && name[0].isLetter() ? name : QString();
}

void expression_edit::offer_completions(int letters_at_least)
{
    const QString begun = name_before_caret();
    completer_->setCompletionPrefix(begun);
    const bool finished = completer_->completionCount() == 1 && completer_->currentCompletion() == begun;
    if (begun.size() < letters_at_least || completer_->completionCount() == 0 || finished) {
        stop_completing();
        return;
    }
    QRect place = cursorRect();
    place.setWidth(list_->sizeHintForColumn(0) + list_->verticalScrollBar()->sizeHint().width() + line_unit(*this));
    completer_->complete(place);
    // No row is preselected: Enter must not replace a finished name by a longer one.
    list_->setCurrentIndex({});
}

void expression_edit::complete(const QString& name)
{
    QTextCursor caret = textCursor();
    caret.movePosition(QTextCursor::PreviousCharacter, QTextCursor::KeepAnchor,
                       static_cast<int>(name_before_caret().size()));
    caret.insertText(name);
    const bool bracket = caret.block().text().mid(caret.positionInBlock()).trimmed().startsWith(QLatin1Char('('));
    if (is_function_name(to_text(name)) && is_equation_word(to_text(name)) && !bracket)
        caret.insertText(QStringLiteral("("));
    setTextCursor(caret);
}

bool expression_edit::eventFilter(QObject* watched, QEvent* event)
{
    // The base class calls this from its constructor, before the list exists.
    const bool key = list_ && watched == list_ && event->type() == QEvent::KeyPress;
    if (!key || !leaves_the_list(*static_cast<QKeyEvent*>(event))) return QPlainTextEdit::eventFilter(watched, event);
    const QString chosen = list_->currentIndex().data(completer_->completionRole()).toString();
    stop_completing();
    // If no row is selected, the key has its usual meaning.
    if (!chosen.isEmpty() && static_cast<QKeyEvent*>(event)->modifiers() == Qt::NoModifier)
        complete(chosen);
    else
        QApplication::sendEvent(this, event);
    return true;
}

void expression_edit::insertFromMimeData(const QMimeData* source)
{
    QMimeData bounded;
    const qsizetype kept = document()->characterCount() - textCursor().selectedText().size();
    bounded.setText(pasted_text(*this, *source, kept));
    QPlainTextEdit::insertFromMimeData(&bounded);
}

void expression_edit::keyPressEvent(QKeyEvent* event)
{
    const bool control = event->modifiers().testFlag(Qt::ControlModifier);
    const bool enter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    const bool shift = event->modifiers().testFlag(Qt::ShiftModifier);
    if (enter && (one_line_ || (!shift && (control || document()->blockCount() == 1)))) {
        stop_completing();
        emit done_asked();
    } else if (enter && shift) {
        // The base class would insert a separator within the line.
        stop_completing();
        textCursor().insertBlock();
        ensureCursorVisible();
    } else if (control && event->key() == Qt::Key_Space) {
        offer_completions(0);
    } else {
        QPlainTextEdit::keyPressEvent(event);
        const bool typed = !event->text().isEmpty() && event->text()[0].isPrint();
        if (typed || event->key() == Qt::Key_Backspace)
            offer_completions(2);
        else if (!event->text().isEmpty())
            stop_completing();
    }
}

void expression_edit::changeEvent(QEvent* event)
{
    QPlainTextEdit::changeEvent(event);
    if (event->type() == QEvent::PaletteChange) highlighter_->set_palette(palette());
}

void expression_edit::hideEvent(QHideEvent* event)
{
    stop_completing();
    QPlainTextEdit::hideEvent(event);
}

} // namespace kelvarin
