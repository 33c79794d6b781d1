// SPDX-License-Identifier: MIT
#include "desktop/commands.h"

#include "desktop/icons.h"

#include <QKeySequence>

#include <array>
#include <string_view>

namespace kelvarin
{

namespace
{

struct command_row
{
    command which;
    const char* name;
    const char* caption;
    const char* tool_tip;
    const char* icon_name;
    QKeySequence::StandardKey key;
    /// Where the platform has no key of its own, or beside it.
    const char* fallback;
};

constexpr auto no_key = QKeySequence::UnknownKey;

// Mnemonics are those of menus in which the commands stand together.
constexpr std::array<command_row, 32> rows{{
    {command::new_leq, "new_leq", "&LEQ Linear Equations", "New problem of linear equations", "leq", no_key, ""},
    {command::new_nle, "new_nle", "&NLE Nonlinear Equations", "New problem of nonlinear equations", "nle", no_key, ""},
    {command::new_deq, "new_deq", "&DEQ Differential Equations", "New problem of differential equations", "deq", no_key,
     ""},
    {command::new_reg, "new_reg", "&REG Regression", "New data table and regression", "reg", no_key, ""},
    {command::new_opt, "new_opt", "&OPT Optimization", "New optimization problem", "opt", no_key, ""},
    {command::open, "open", "&Open", "Open a file", "open", QKeySequence::Open, "Ctrl+O"},
    {command::save, "save", "&Save", "Save the problem in front", "save", QKeySequence::Save, "Ctrl+S"},
    {command::save_as, "save_as", "Save &As...", "Save under another name", "save_as", QKeySequence::SaveAs,
     "Ctrl+Shift+S"},
    {command::print, "print", "&Print...", "Print", "print", QKeySequence::Print, "Ctrl+P"},
    {command::print_preview, "print_preview", "Print Pre&view...", "Look at the pages before they are printed", "",
     no_key, ""},
    {command::close, "close", "&Close", "Close the window in front", "close", QKeySequence::Close, "Ctrl+W"},
    {command::close_all, "close_all", "Close All", "Close all windows", "", no_key, "Ctrl+Shift+W"},
    {command::exit, "exit", "E&xit", "End the program", "", QKeySequence::Quit, "Ctrl+Q"},
    {command::undo, "undo", "&Undo", "Take the last step back", "undo", QKeySequence::Undo, "Ctrl+Z"},
    {command::redo, "redo", "&Redo", "Do the step again", "redo", QKeySequence::Redo, "Ctrl+Y"},
    {command::cut, "cut", "Cu&t", "Cut", "cut", QKeySequence::Cut, "Ctrl+X"},
    {command::copy, "copy", "&Copy", "Copy", "copy", QKeySequence::Copy, "Ctrl+C"},
    {command::paste, "paste", "&Paste", "Paste", "paste", QKeySequence::Paste, "Ctrl+V"},
    {command::select_all, "select_all", "Select All", "Select all", "", QKeySequence::SelectAll, "Ctrl+A"},
    {command::solve, "solve", "&Solve it ...", "Solve the problem in front", "solve", no_key, "F5"},
    {command::stop, "stop", "Sto&p", "Stop the run of the window in front", "stop", no_key, "Esc"},
    {command::calculator, "calculator", "Calculator", "Calculator", "calculator", no_key, "F6"},
    {command::units, "units", "Units Converter", "Units converter", "units", no_key, "F7"},
    {command::antoine, "antoine", "Antoine Equation", "Vapour pressures by the Antoine equation", "antoine", no_key,
     ""},
    {command::constants, "constants", "Constants", "Table of constants", "constants", no_key, "F8"},
    {command::setup, "setup", "Setup", "Settings", "setup", QKeySequence::Preferences, "Ctrl+,"},
    {command::cascade, "cascade", "&Cascade", "Lay the windows one behind the other", "", no_key, ""},
    {command::tile_horizontally, "tile_horizontally", "Tile &Horizontal", "Lay the windows one below the other", "",
     no_key, ""},
    {command::tile_vertically, "tile_vertically", "Tile &Vertical", "Lay the windows side by side", "", no_key, ""},
    {command::arrange_icons, "arrange_icons", "&Arrange Icons", "Line up the windows that are minimised", "", no_key,
     ""},
    {command::contents, "contents", "&Contents", "Help", "", QKeySequence::HelpContents, "F1"},
    {command::about, "about", "&About...", "About this program", "", no_key, ""},
}};

QList<QKeySequence> shortcuts_of(const command_row& row)
{
    QList<QKeySequence> keys;
    if (row.key != no_key) keys = QKeySequence::keyBindings(row.key);
    const QKeySequence own(QString::fromLatin1(row.fallback));
    if (!own.isEmpty() && !keys.contains(own)) keys.append(own);
    return keys;
}

const command_row& row_of(command which)
{
    return rows.at(static_cast<std::size_t>(which));
}

} // namespace

const std::vector<command>& all_commands()
{
    static const std::vector<command> all = [] {
        std::vector<command> commands;
        for (const command_row& row : rows)
            commands.push_back(row.which);
        return commands;
    }();
    return all;
}

command_actions::command_actions(QObject* parent) : QObject(parent)
{
    for (const command_row& row : rows) {
        auto* action = new QAction(tr(row.caption), this);
        action->setObjectName(QString::fromLatin1(row.name));
        action->setShortcuts(shortcuts_of(row));
        const QString keys = action->shortcut().toString(QKeySequence::NativeText);
        action->setToolTip(keys.isEmpty() ? tr(row.tool_tip) : tr(row.tool_tip) + QStringLiteral(" (%1)").arg(keys));
        action->setStatusTip({});
        if (*row.icon_name) action->setIcon(icon(row.icon_name));
        const command which = row.which;
        connect(action, &QAction::triggered, this, [this, which] { emit triggered(which); });
        actions_.emplace(which, action);
    }
}

void command_actions::restore_caption(command which)
{
    actions_.at(which)->setText(tr(row_of(which).caption));
}

} // namespace kelvarin
