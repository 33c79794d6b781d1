// SPDX-License-Identifier: MIT
#include "reg/window/cell_line.h"

#include <QKeyEvent>

namespace kelvarin
{

void cell_line::keyPressEvent(QKeyEvent* event)
{
    switch (event->key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
    case Qt::Key_Down:
        emit accepted(1);
        break;
    case Qt::Key_Up:
        emit accepted(-1);
        break;
    case Qt::Key_Escape:
        emit cancelled();
        break;
    default:
        QLineEdit::keyPressEvent(event);
        return;
    }
    event->accept();
}

void cell_line::focusInEvent(QFocusEvent* event)
{
    QLineEdit::focusInEvent(event);
    setCursorPosition(static_cast<int>(text().size()));
    emit begun();
}

} // namespace kelvarin
