// SPDX-License-Identifier: MIT
#include "desktop/child_window.h"

#include <QApplication>
#include <QMdiSubWindow>

namespace kelvarin
{

child_window::child_window(desktop_context& context, const char* kind) : context_(context)
{
    setObjectName(QString::fromLatin1(kind));
    setAttribute(Qt::WA_DeleteOnClose);
    connect(qApp, &QApplication::focusChanged, this, [this](const QWidget*, QWidget* now) {
        if (in_front_ && now && isAncestorOf(now)) last_focus_ = now;
    });
}

child_window::~child_window()
{
    // The focus still moves while the controls are deleted.
    disconnect(qApp, nullptr, this, nullptr);
}

QWidget* child_window::focus_in_window() const
{
    return last_focus_;
}

void child_window::give_focus_to(QWidget* widget)
{
    if (!widget) return;
    last_focus_ = widget;
    if (in_front_ && widget->isEnabled() && widget->isVisible()) widget->setFocus(Qt::OtherFocusReason);
}

void child_window::set_in_front(bool in_front)
{
    if (in_front == comes_to_front_) return;
    comes_to_front_ = in_front;
    in_front_ = false;
    if (!in_front) return;
    // A click into the window says itself where the keyboard belongs.
    if (QApplication::mouseButtons() != Qt::NoButton) last_focus_ = nullptr;
    // The area still chooses a widget of its own behind the signal that it gives.
    QMetaObject::invokeMethod(
        this,
        [this] {
            if (!comes_to_front_) return;
            in_front_ = true;
            QWidget* now = QApplication::focusWidget();
            if (!last_focus_ && now && isAncestorOf(now)) last_focus_ = now;
            give_focus_to(last_focus_);
        },
        Qt::QueuedConnection);
}

QString child_window::file_panel() const
{
    return QStringLiteral("No File  ");
}

QString child_window::title_panel() const
{
    return QStringLiteral("No Title ");
}

bool child_window::close_with_frame()
{
    if (auto* frame = qobject_cast<QMdiSubWindow*>(parentWidget())) return frame->close();
    return close();
}

} // namespace kelvarin
