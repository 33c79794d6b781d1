// SPDX-License-Identifier: MIT
#include "desktop/accent_keeper.h"

#include "desktop/look.h"

#include <QApplication>
#include <QEvent>

namespace kelvarin
{

accent_keeper::accent_keeper(QApplication& application) : QObject(&application)
{
    apply();
    application.installEventFilter(this);
}

bool accent_keeper::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::ApplicationPaletteChange && watched == parent()) apply();
    return false;
}

void accent_keeper::apply()
{
    const QPalette present = QApplication::palette();
    const QPalette wanted = accented_palette(present);
    if (wanted == present) return;
    // Only these roles are set by the program; all others still follow the desktop.
    QPalette own = present;
    for (const auto role : {QPalette::Highlight, QPalette::HighlightedText})
        own.setColor(QPalette::Active, role, wanted.color(QPalette::Active, role));
    for (const auto group : {QPalette::Active, QPalette::Inactive})
        own.setColor(group, QPalette::Link, wanted.color(group, QPalette::Link));
    QApplication::setPalette(own);
}

} // namespace kelvarin
