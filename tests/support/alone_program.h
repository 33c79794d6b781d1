// SPDX-License-Identifier: MIT
#pragma once

#include <QApplication>
#include <QTimer>

#include <functional>

namespace kelvarin::test
{

/// Whether a program that ends with its last window does so when `act` is done inside it: the toolkit reports a last
/// window only while the program runs. Waits the time when it does not end.
inline bool ends_program(const std::function<void()>& act, int milliseconds = 300)
{
    bool ended = false;
    QObject listener;
    QObject::connect(qApp, &QGuiApplication::lastWindowClosed, &listener, [&] {
        ended = true;
        QApplication::exit();
    });
    QTimer::singleShot(0, &listener, act);
    // Not quit(), which closes all windows first.
    QTimer::singleShot(milliseconds, &listener, [] { QApplication::exit(); });
    QApplication::exec();
    return ended;
}

} // namespace kelvarin::test
