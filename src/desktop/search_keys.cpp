// SPDX-License-Identifier: MIT
#include "desktop/search_keys.h"

#include <QKeyEvent>
#include <QLineEdit>

#include <utility>

namespace kelvarin
{

search_keys::search_keys(QLineEdit& field, QWidget& found, std::function<void()> take_first)
    : QObject(&field), found_(found), take_first_(std::move(take_first))
{
    field.installEventFilter(this);
}

bool search_keys::eventFilter(QObject*, QEvent* event)
{
    if (event->type() != QEvent::KeyPress) return false;
    switch (static_cast<QKeyEvent*>(event)->key()) {
    case Qt::Key_Down:
        found_.setFocus(Qt::TabFocusReason);
        return true;
    case Qt::Key_Return:
    case Qt::Key_Enter:
        take_first_();
        return true;
    default:
        return false;
    }
}

} // namespace kelvarin
