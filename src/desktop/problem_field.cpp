// SPDX-License-Identifier: MIT
#include "desktop/problem_field.h"

#include "desktop/command_keys.h"
#include "desktop/look.h"
#include "desktop/qt_text.h"

#include <QKeyEvent>

namespace kelvarin
{

problem_field::problem_field(int digits, const char* name, const QString& tip)
{
    setObjectName(QString::fromLatin1(name));
    setFont(fixed_font(*this));
    setFixedWidth(digits * fontMetrics().horizontalAdvance(QLatin1Char('0')) + line_unit(*this));
    setToolTip(tip);
}

void problem_field::show_text(const std::string& shown)
{
    const QString next = to_qstring(shown);
    if (text() != next) setText(next);
}

bool problem_field::event(QEvent* event)
{
    if (asks_for_command_key(*event, {QKeySequence::Undo, QKeySequence::Redo})) {
        event->ignore();
        return true;
    }
    return QLineEdit::event(event);
}

} // namespace kelvarin
