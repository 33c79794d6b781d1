// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>

class QApplication;

namespace kelvarin
{

/// Prevents the wheel from changing combo boxes, spin boxes and sliders by accident, in all windows of the program: a
/// field without the focus passes the wheel on to its parent, and the wheel doesn't give it the focus.
class wheel_guard : public QObject
{
    Q_OBJECT

public:
    explicit wheel_guard(QApplication& application);

    bool eventFilter(QObject* watched, QEvent* event) override;
};

} // namespace kelvarin
