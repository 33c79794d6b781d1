// SPDX-License-Identifier: MIT
#include "tools/window/on_top_check.h"

#include <QGuiApplication>

namespace kelvarin
{

on_top_check::on_top_check(QWidget* parent) : QCheckBox(tr("On Top"), parent)
{
    setObjectName(QStringLiteral("chkOnTop"));
    setToolTip(tr("Keep this window in front of all others"));
    if (QGuiApplication::platformName().startsWith(QLatin1String("wayland"))) {
        setEnabled(false);
        setToolTip(tr("On this desktop only the window's own menu can keep it in front"));
    }
    connect(this, &QCheckBox::toggled, this, &on_top_check::raise_window);
}

void on_top_check::raise_window(bool above_others)
{
    QWidget& kept = *window();
    const QRect place = kept.geometry();
    kept.setWindowFlag(Qt::WindowStaysOnTopHint, above_others);
    // setWindowFlag has hidden the window.
    kept.setGeometry(place);
    kept.show();
    kept.activateWindow();
}

} // namespace kelvarin
