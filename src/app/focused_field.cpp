// SPDX-License-Identifier: MIT
#include "app/focused_field.h"

#include "desktop/problem_field.h"

#include <QApplication>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QTextCursor>
#include <QTextDocument>
#include <QTextEdit>

namespace kelvarin
{

namespace
{

bool has_selection(const QLineEdit& field)
{
    return field.hasSelectedText();
}

template <class Edit> bool has_selection(const Edit& field)
{
    return field.textCursor().hasSelection();
}

bool can_undo(const QLineEdit& field)
{
    return field.isUndoAvailable();
}

template <class Edit> bool can_undo(const Edit& field)
{
    return field.document()->isUndoAvailable();
}

bool can_redo(const QLineEdit& field)
{
    return field.isRedoAvailable();
}

template <class Edit> bool can_redo(const Edit& field)
{
    return field.document()->isRedoAvailable();
}

template <class Field> bool field_can(const Field& field, window_command which)
{
    switch (which) {
    case window_command::undo:
        return can_undo(field);
    case window_command::redo:
        return can_redo(field);
    case window_command::cut:
    case window_command::copy:
        return has_selection(field);
    case window_command::paste:
    case window_command::select_all:
        return true;
    default:
        return false;
    }
}

template <class Field> void perform_in(Field& field, window_command which)
{
    switch (which) {
    case window_command::undo:
        return field.undo();
    case window_command::redo:
        return field.redo();
    case window_command::cut:
        return field.cut();
    case window_command::copy:
        return field.copy();
    case window_command::paste:
        return field.paste();
    case window_command::select_all:
        return field.selectAll();
    default:
        return;
    }
}

/// Whether undo and redo in the field belong to its problem.
bool leaves_to_problem(const QWidget& field, window_command which)
{
    return (which == window_command::undo || which == window_command::redo) &&
           qobject_cast<const problem_field*>(&field);
}

/// Calls `visit` with the widget cast to its type. Returns false if it is not an editable field.
template <class Visit> bool visit_field(QWidget* widget, Visit visit)
{
    const auto as = [&]<class Field>(Field* field) {
        if (!field || field->isReadOnly()) return false;
        visit(*field);
        return true;
    };
    return as(qobject_cast<QLineEdit*>(widget)) || as(qobject_cast<QPlainTextEdit*>(widget)) ||
           as(qobject_cast<QTextEdit*>(widget));
}

} // namespace

focused_field::focused_field(QWidget& window) : QObject(&window), window_(window)
{
    connect(qApp, &QApplication::focusChanged, this, [this](QWidget*, QWidget* now) { take(now); });
}

void focused_field::take(QWidget* focused)
{
    // A menu or box takes the focus temporarily; commands still apply to the field.
    if (!focused || focused->window() != &window_ || focused == field_) return;
    if (field_) field_->disconnect(this);
    field_ = nullptr;
    visit_field(focused, [&](auto& field) {
        using Field = std::remove_reference_t<decltype(field)>;
        field_ = &field;
        connect(&field, &Field::selectionChanged, this, &focused_field::changed);
        connect(&field, &Field::textChanged, this, &focused_field::changed);
    });
    emit changed();
}

bool focused_field::can(window_command which) const
{
    bool answer = false;
    if (field_ && field_->isVisible() && field_->isEnabled() && !leaves_to_problem(*field_, which))
        visit_field(field_, [&](const auto& field) { answer = field_can(field, which); });
    return answer;
}

void focused_field::perform(window_command which)
{
    visit_field(field_, [&](auto& field) { perform_in(field, which); });
}

} // namespace kelvarin
