// SPDX-License-Identifier: MIT
#pragma once

#include "desktop/commands.h"
#include "desktop/desktop_context.h"

#include <QList>
#include <QObject>

class QMenu;
class QWidget;

namespace kelvarin
{

class child_area;

/// The menus of the main window: those of its own bar, and those that are also in every child's bar.
class main_menus : public QObject
{
    Q_OBJECT

public:
    main_menus(QWidget& window, desktop_context& context, const command_actions& actions, child_area& area);

    /// The menu bar while no child is open.
    QList<QMenu*> bar() const { return {file_menu_, help_menu_}; }
    QMenu* new_menu() const { return new_menu_; }
    QMenu* tools_menu() const { return tools_menu_; }
    QMenu* window_menu() const { return window_menu_; }
    QMenu* help_menu() const { return help_menu_; }

signals:
    /// Another window of the active kind is requested.
    void new_window_asked();

private:
    QMenu* make(const QString& title, const char* name, QWidget& window);
    void show_window_list();
    void show_reports();

    desktop_context& context_;
    const command_actions& actions_;
    child_area& area_;
    QMenu* file_menu_ = nullptr;
    QMenu* new_menu_ = nullptr;
    QMenu* tools_menu_ = nullptr;
    QMenu* window_menu_ = nullptr;
    QMenu* help_menu_ = nullptr;
    QMenu* reports_menu_ = nullptr;
    QAction* close_older_reports_ = nullptr;
    QList<QAction*> window_list_;
};

} // namespace kelvarin
