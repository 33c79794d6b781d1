// SPDX-License-Identifier: MIT
#include "app/guarded_application.h"

#include <utility>

namespace kelvarin
{

bool guarded_application::notify(QObject* receiver, QEvent* event)
{
    try {
        return QApplication::notify(receiver, event);
    } catch (...) {
        // Here and not further out: the toolkit itself is not written to be left by an exception.
        tell(std::current_exception());
        return false;
    }
}

void guarded_application::tell(std::exception_ptr failure)
{
    if (std::exchange(tells_, true)) return;
    QMetaObject::invokeMethod(
        this,
        [this, failure] {
            emit event_failed(failure);
            tells_ = false;
        },
        Qt::QueuedConnection);
}

} // namespace kelvarin
