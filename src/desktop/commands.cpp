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
    window_command which;
    const char* name;
    const char* caption;
    const char* tool_tip;
    const char* icon_name;
    QKeySequence::StandardKey key;
    /// A key for platforms without a standard one, or an additional key.
    const char* fallback;
};

constexpr auto no_key = QKeySequence::UnknownKey;

// Mnemonics are distinct within each menu.
constexpr std::array<command_row, 32> rows{{
    {window_command::new_leq, "new_leq", "&LEQ Linear Equations", "New problem of linear equations", "leq", no_key, ""},
    {window_command::new_nle, "new_nle", "&NLE Nonlinear Equations", "New problem of nonlinear equations", "nle",
     no_key, ""},
    {window_command::new_deq, "new_deq", "&DEQ Differential Equations", "New problem of differential equations", "deq",
     no_key, ""},
    {window_command::new_reg, "new_reg", "&REG Regression", "New data table and regression", "reg", no_key, ""},
    {window_command::new_opt, "new_opt", "&OPT Optimization", "New optimization problem", "opt", no_key, ""},
    {window_command::open, "open", "&Open", "Open a file", "open", QKeySequence::Open, "Ctrl+O"},
    {window_command::save, "save", "&Save", "Save the problem in front", "save", QKeySequence::Save, "Ctrl+S"},
    {window_command::save_as, "save_as", "Save &As...", "Save under another name", "save_as", QKeySequence::SaveAs,
     "Ctrl+Shift+S"},
    {window_command::print, "print", "&Print...", "Print", "print", QKeySequence::Print, "Ctrl+P"},
    {window_command::print_preview, "print_preview", "Print Pre&view...", "Look at the pages before they are printed",
     "", no_key, ""},
    {window_command::close, "close", "&Close", "Close the window in front", "close", QKeySequence::Close, "Ctrl+W"},
    {window_command::close_all, "close_all", "Close All", "Close all windows", "", no_key, "Ctrl+Shift+W"},
    {window_command::exit, "exit", "E&xit", "End the program", "", QKeySequence::Quit, "Ctrl+Q"},
    {window_command::undo, "undo", "&Undo", "Take the last step back", "undo", QKeySequence::Undo, "Ctrl+Z"},
    {window_command::redo, "redo", "&Redo", "Do the step again", "redo", QKeySequence::Redo, "Ctrl+Y"},
    {window_command::cut, "cut", "Cu&t", "Cut", "cut", QKeySequence::Cut, "Ctrl+X"},
    {window_command::copy, "copy", "&Copy", "Copy", "copy", QKeySequence::Copy, "Ctrl+C"},
    {window_command::paste, "paste", "&Paste", "Paste", "paste", QKeySequence::Paste, "Ctrl+V"},
    {window_command::select_all, "select_all", "Select All", "Select all", "", QKeySequence::SelectAll, "Ctrl+A"},
    {window_command::solve, "solve", "&Solve it ...", "Solve the problem in front", "solve", no_key, "F5"},
    {window_command::stop, "stop", "Sto&p", "Stop the run of the window in front", "stop", no_key, "Esc"},
    {window_command::calculator, "calculator", "Calculator", "Calculator", "calculator", no_key, "F6"},
    {window_command::units, "units", "Units Converter", "Units converter", "units", no_key, "F7"},
    {window_command::antoine, "antoine", "Antoine Equation", "Vapour pressures by the Antoine equation", "antoine",
     no_key, ""},
    {window_command::constants, "constants", "Constants", "Table of constants", "constants", no_key, "F8"},
    {window_command::setup, "setup", "Setup", "Settings", "setup", QKeySequence::Preferences, "Ctrl+,"},
    {window_command::cascade, "cascade", "&Cascade", "Lay the windows one behind the other", "", no_key, ""},
    {window_command::tile_horizontally, "tile_horizontally", "Tile &Horizontal", "Lay the windows one below the other",
     "", no_key, ""},
    {window_command::tile_vertically, "tile_vertically", "Tile &Vertical", "Lay the windows side by side", "", no_key,
     ""},
    {window_command::arrange_icons, "arrange_icons", "&Arrange Icons", "Line up the windows that are minimised", "",
     no_key, ""},
    {window_command::contents, "contents", "&Contents", "Help", "", QKeySequence::HelpContents, "F1"},
    {window_command::about, "about", "&About...", "About this program", "", no_key, ""},
}};

QList<QKeySequence> shortcuts_of(const command_row& row)
{
    QList<QKeySequence> keys;
    if (row.key != no_key) keys = QKeySequence::keyBindings(row.key);
    const QKeySequence own(QString::fromLatin1(row.fallback));
    if (!own.isEmpty() && !keys.contains(own)) keys.append(own);
    return keys;
}

const command_row& row_of(window_command which)
{
    return rows.at(static_cast<std::size_t>(which));
}

} // namespace

const std::vector<window_command>& all_commands()
{
    static const std::vector<window_command> all = [] {
        std::vector<window_command> commands;
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
        if (*row.icon_name) action->setIcon(program_icon(row.icon_name));
        const window_command which = row.which;
        connect(action, &QAction::triggered, this, [this, which] { emit triggered(which); });
        actions_.emplace(which, action);
    }
}

void command_actions::restore_caption(window_command which)
{
    actions_.at(which)->setText(tr(row_of(which).caption));
}

} // namespace kelvarin
