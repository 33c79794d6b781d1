// SPDX-License-Identifier: MIT
#include "desktop/wheel_guard.h"

#include <QAbstractSlider>
#include <QAbstractSpinBox>
#include <QApplication>
#include <QComboBox>
#include <QEvent>
#include <QScrollBar>

namespace kelvarin
{

namespace
{

/// The object as a field whose value the wheel would change; null for others and for scroll bars.
QWidget* field_of(QObject* watched)
{
    if (auto* box = qobject_cast<QComboBox*>(watched)) return box;
    if (auto* number = qobject_cast<QAbstractSpinBox*>(watched)) return number;
    auto* slider = qobject_cast<QAbstractSlider*>(watched);
    return qobject_cast<QScrollBar*>(watched) ? nullptr : slider;
}

} // namespace

wheel_guard::wheel_guard(QApplication& application) : QObject(&application)
{
    application.installEventFilter(this);
}

bool wheel_guard::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() != QEvent::Wheel && event->type() != QEvent::Polish) return false;
    QWidget* field = field_of(watched);
    if (!field) return false;
    if (event->type() == QEvent::Polish) {
        if (field->focusPolicy() == Qt::WheelFocus) field->setFocusPolicy(Qt::StrongFocus);
        return false;
    }
    if (field->hasFocus()) return false;
    // The ignored event is passed on to the parent, which scrolls.
    event->ignore();
    return true;
}

} // namespace kelvarin
