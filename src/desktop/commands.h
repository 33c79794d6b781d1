// SPDX-License-Identifier: MIT
#pragma once

#include <QAction>
#include <QObject>

#include <functional>
#include <map>
#include <vector>

namespace kelvarin
{

/// The commands of the main window and the windows in it, triggered by menu, button or key. Each command is one action,
/// owned by the main window: two actions with the same shortcut would both be ambiguous and do nothing.
enum class window_command
{
    new_leq,
    new_nle,
    new_deq,
    new_reg,
    new_opt,
    open,
    save,
    save_as,
    print,
    print_preview,
    close,
    close_all,
    exit,
    undo,
    redo,
    cut,
    copy,
    paste,
    select_all,
    solve,
    stop,
    calculator,
    units,
    antoine,
    constants,
    setup,
    cascade,
    tile_horizontally,
    tile_vertically,
    arrange_icons,
    contents,
    about
};

/// All commands, in the order of the enumeration.
const std::vector<window_command>& all_commands();

/// The actions of all commands with their captions, tool tips, icons and shortcuts (the platform's standard keys, else
/// the program's own). Object names are the commands' names, such as "save_as".
class command_actions : public QObject
{
    Q_OBJECT

public:
    explicit command_actions(QObject* parent);

    QAction* action(window_command which) const { return actions_.at(which); }
    /// Restores the default caption.
    void restore_caption(window_command which);

signals:
    void triggered(kelvarin::window_command which);

private:
    std::map<window_command, QAction*> actions_;
};

} // namespace kelvarin
