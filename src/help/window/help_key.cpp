// SPDX-License-Identifier: MIT
#include "help/window/help_key.h"

#include <QApplication>
#include <QKeyEvent>
#include <QWidget>

#include <utility>

namespace kelvarin
{

help_key::help_key(QObject& parent, std::function<void()> show_help)
    : QObject(&parent), show_help_(std::move(show_help))
{
    qApp->installEventFilter(this);
}

bool help_key::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() != QEvent::KeyPress || !watched->isWidgetType()) return false;
    const auto& key = *static_cast<QKeyEvent*>(event);
    if (key.key() != Qt::Key_F1 || key.modifiers() != Qt::NoModifier) return false;
    const QWidget* modal = QApplication::activeModalWidget();
    if (modal && modal->windowModality() == Qt::ApplicationModal) return false;
    show_help_();
    return true;
}

} // namespace kelvarin
