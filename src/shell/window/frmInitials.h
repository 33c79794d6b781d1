// SPDX-License-Identifier: MIT
#pragma once

#include "desktop/desktop_context.h"

#include <QWidget>

namespace kelvarin
{

/// "Kelvarin Settings": the settings as a tree, each with its checks and resets. A top-level window that is
/// hidden, not deleted, when it is closed.
class frmInitials : public QWidget
{
    Q_OBJECT

public:
    explicit frmInitials(desktop_context& context, QWidget* parent = nullptr);

signals:
    /// A value has been changed: the main window looks again at those that concern it.
    void settings_changed();

private:
    desktop_context& context_;
};

} // namespace kelvarin
