// SPDX-License-Identifier: MIT
#include "app/main_menus.h"

#include "app/child_area.h"
#include "app/problem_kinds.h"
#include "desktop/problem_window.h"
#include "shell/window/frmSolution.h"

#include <QMenu>
#include <QPointer>

#include <cstddef>
#include <initializer_list>

namespace kelvarin
{

namespace
{

constexpr std::initializer_list<window_command> tool_commands{window_command::calculator, window_command::units,
                                                              window_command::antoine, window_command::constants,
                                                              window_command::setup};

/// Windows 1 to 9 have their number as mnemonic in the list; further ones have none.
constexpr int last_number_with_key = 9;

} // namespace

main_menus::main_menus(QWidget& window, desktop_context& context, const command_actions& actions, child_area& area)
    : QObject(&window), context_(context), actions_(actions), area_(area)
{
    const auto add = [&actions](QMenu* menu, std::initializer_list<window_command> commands) {
        for (const window_command which : commands)
            menu->addAction(actions.action(which));
    };
    new_menu_ = make(tr("&New"), "mnuFileItemP", window);
    for (const problem_window_kind& kind : problem_window_kinds())
        add(new_menu_, {kind.fresh});

    file_menu_ = make(tr("&File"), "mnuFile", window);
    file_menu_->addMenu(new_menu_);
    add(file_menu_, {window_command::open});
    file_menu_->addSeparator();
    add(file_menu_, tool_commands);
    file_menu_->addSeparator();
    add(file_menu_, {window_command::exit});

    tools_menu_ = make(tr("&Tools"), "mnuTools", window);
    add(tools_menu_, tool_commands);

    window_menu_ = make(tr("&Window"), "mnuWindow", window);
    add(window_menu_, {window_command::cascade, window_command::tile_horizontally, window_command::tile_vertically,
                       window_command::arrange_icons});
    QAction* more = window_menu_->addAction(tr("&New Window of This Kind"), this, &main_menus::new_window_asked);
    more->setObjectName(QStringLiteral("mnuNewWindow"));
    more->setShortcut(QKeySequence(QStringLiteral("Ctrl+N")));
    window.addAction(more);
    reports_menu_ = make(tr("&Reports of This Problem"), "mnuReports", *window_menu_);
    window_menu_->addMenu(reports_menu_);
    close_older_reports_ = window_menu_->addAction(tr("Close &Older Reports"), this, [this] {
        if (child_window* front = area_.front(); front && front->its_problem())
            close_older_reports(*front->its_problem());
    });
    close_older_reports_->setObjectName(QStringLiteral("mnuCloseOlderReports"));
    window_menu_->addSeparator();
    connect(window_menu_, &QMenu::aboutToShow, this, &main_menus::show_reports);
    connect(window_menu_, &QMenu::aboutToShow, this, &main_menus::show_window_list);

    help_menu_ = make(tr("&Help"), "mnuHelp", window);
    add(help_menu_, {window_command::contents, window_command::about});
}

QMenu* main_menus::make(const QString& title, const char* name, QWidget& window)
{
    auto* menu = new QMenu(title, &window);
    menu->setObjectName(QString::fromLatin1(name));
    return menu;
}

void main_menus::show_reports()
{
    reports_menu_->clear();
    child_window* front = area_.front();
    const QPointer<problem_window> problem = front ? front->its_problem() : nullptr;
    int open = 0;
    // The latest one first.
    for (std::size_t index = problem ? problem->reports().size() : 0; index-- > 0;) {
        const problem_report& report = problem->reports()[index];
        QAction* entry = reports_menu_->addAction(report.caption, this, [this, problem, index] {
            if (problem) show_report_again(context_, *problem, index);
        });
        entry->setCheckable(true);
        entry->setChecked(report.window);
        open += report.window ? 1 : 0;
    }
    reports_menu_->menuAction()->setVisible(!reports_menu_->isEmpty());
    close_older_reports_->setVisible(!reports_menu_->isEmpty());
    close_older_reports_->setEnabled(open > 1);
}

void main_menus::show_window_list()
{
    qDeleteAll(window_list_);
    window_list_.clear();
    int number = 0;
    for (child_window* child : area_.children()) {
        ++number;
        QString title = child->windowTitle();
        title.remove(QStringLiteral("[*]")).replace(QLatin1Char('&'), QStringLiteral("&&"));
        const QString key = number <= last_number_with_key ? QStringLiteral("&") : QString();
        QAction* entry = window_menu_->addAction(QStringLiteral("%1%2 %3").arg(key).arg(number).arg(title));
        entry->setObjectName(QStringLiteral("mnuWindowList_%1").arg(number));
        entry->setCheckable(true);
        entry->setChecked(child == area_.front());
        connect(entry, &QAction::triggered, this, [this, chosen = QPointer<child_window>(child)] {
            if (chosen) area_.bring_to_front(*chosen);
        });
        window_list_.append(entry);
    }
}

} // namespace kelvarin
