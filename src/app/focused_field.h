// SPDX-License-Identifier: MIT
#pragma once

#include "desktop/commands.h"

#include <QObject>
#include <QPointer>
#include <QWidget>

namespace kelvarin
{

/// The text field that has the focus in a window. The commands of editing mean the text in it, where it can
/// follow them, before they mean the window around it. What is only read is not a field.
class focused_field : public QObject
{
    Q_OBJECT

public:
    explicit focused_field(QWidget& window);

    bool can(window_command which) const;
    void perform(window_command which);

signals:
    /// What `can` answers may have changed.
    void changed();

private:
    void take(QWidget* focused);

    QWidget& window_;
    QPointer<QWidget> field_;
};

} // namespace kelvarin
