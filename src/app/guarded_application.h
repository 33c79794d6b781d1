// SPDX-License-Identifier: MIT
#pragma once

#include <QApplication>

#include <exception>

namespace kelvarin
{

/// The application of the desktop. What fails while an event is handled ends that event alone: the reason is told in a
/// box, and windows and documents stay as they are.
class guarded_application : public QApplication
{
    Q_OBJECT

public:
    using QApplication::QApplication;

    bool notify(QObject* receiver, QEvent* event) override;

signals:
    /// An event was given up. Comes after all events at hand, and once for failures that follow each other at once, as
    /// of a window that fails in each painting.
    void event_failed(const std::exception_ptr& failure);

private:
    void tell(std::exception_ptr failure);

    bool tells_ = false;
};

} // namespace kelvarin
