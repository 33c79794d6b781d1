// SPDX-License-Identifier: MIT
#include "app/main_toolbar.h"

#include "app/problem_kinds.h"
#include "desktop/icons.h"
#include "desktop/look.h"

#include <QAction>

namespace kelvarin
{

main_toolbar::main_toolbar(const command_actions& actions, QWidget* parent) : QToolBar(tr("Toolbar"), parent)
{
    setObjectName(QStringLiteral("tbrKvr"));
    setMovable(false);
    setToolButtonStyle(Qt::ToolButtonTextUnderIcon);
    setIconSize(QSize(line_unit(*this), line_unit(*this)) * 3 / 2);
    // A hidden toolbar could not be shown again, since no menu item does that.
    toggleViewAction()->setEnabled(false);
    toggleViewAction()->setVisible(false);

    add_button(actions.action(window_command::open), "open", tr("Open"));
    add_button(actions.action(window_command::save), "save", tr("Save"));
    addSeparator();
    for (const problem_window_kind& kind : problem_window_kinds()) {
        const QAction* fresh = actions.action(kind.fresh);
        // Not the command itself, which shows the one window of the File menu: this opens another window.
        auto* more = new QAction(fresh->icon(), QString::fromLatin1(kind.row->key).toUpper(), this);
        more->setToolTip(fresh->toolTip());
        connect(more, &QAction::triggered, this, [this, &kind] { emit new_window_asked(kind); });
        add_button(more, kind.row->key, more->text());
    }
    addSeparator();
    add_button(actions.action(window_command::calculator), "calculate", tr("Calculator"));
    add_button(actions.action(window_command::units), "units", tr("Units"));
    add_button(actions.action(window_command::constants), "const", tr("Constants"));
    addSeparator();
    add_button(actions.action(window_command::setup), "setup", tr("Setup"));
}

void main_toolbar::add_button(QAction* action, const char* key, const QString& caption)
{
    action->setIconText(caption);
    addAction(action);
    QWidget* button = widgetForAction(action);
    button->setObjectName(QString::fromLatin1(key));
    button->setAccessibleName(action->toolTip());
}

} // namespace kelvarin
