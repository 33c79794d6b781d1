// SPDX-License-Identifier: MIT
#pragma once

#include "desktop/commands.h"

#include <QToolBar>

namespace kelvarin
{

struct problem_window_kind;

/// The main window's toolbar: icons above short texts. Each button's object name is its key.
class main_toolbar : public QToolBar
{
    Q_OBJECT

public:
    main_toolbar(const command_actions& actions, QWidget* parent);

signals:
    /// Another window of a kind is requested.
    void new_window_asked(const kelvarin::problem_window_kind& kind);

private:
    void add_button(QAction* action, const char* key, const QString& caption);
};

} // namespace kelvarin
