// SPDX-License-Identifier: MIT
#pragma once

#include "desktop/commands.h"

#include <QObject>
#include <QPointer>
#include <QWidget>

namespace kelvarin
{

/// The text field that has the focus in a window. Editing commands apply to it, if it supports them, before they apply
/// to the window. Read-only fields are ignored.
class focused_field : public QObject
{
    Q_OBJECT

public:
    explicit focused_field(QWidget& window);

    bool can(window_command which) const;
    void perform(window_command which);

signals:
    /// The result of `can` may have changed.
    void changed();

private:
    void take(QWidget* focused);

    QWidget& window_;
    QPointer<QWidget> field_;
};

} // namespace kelvarin
