// SPDX-License-Identifier: MIT
#include "app/tool_windows.h"

#include "desktop/window_memory.h"
#include "help/window/frmHelp.h"
#include "help/window/help_pages.h"
#include "shell/window/frmInitials.h"
#include "tools/window/frmAnt.h"
#include "tools/window/frmCal.h"
#include "tools/window/frmConstant.h"
#include "tools/window/frmUni.h"

#include <QAction>

namespace kelvarin
{

tool_windows::tool_windows(desktop_context& context) : context_(context) {}

tool_windows::~tool_windows()
{
    for (const auto& [tool, window] : windows_)
        delete window;
}

QWidget* tool_windows::make(window_command tool)
{
    switch (tool) {
    case window_command::calculator:
        return new frmCal(context_);
    case window_command::units: {
        auto* window = new frmUni(context_);
        connect(window, &frmUni::antoine_asked, this, [this] { show(window_command::antoine); });
        return window;
    }
    case window_command::antoine:
        return new frmAnt(context_);
    case window_command::constants:
        return new frmConstant(context_);
    case window_command::setup: {
        auto* window = new frmInitials(context_);
        connect(window, &frmInitials::settings_changed, this, &tool_windows::settings_changed);
        return window;
    }
    case window_command::contents: {
        auto* window = new frmHelp(program_help());
        connect(window, &frmHelp::example_asked, this, &tool_windows::example_asked);
        return window;
    }
    default:
        return nullptr;
    }
}

void tool_windows::show(window_command tool)
{
    QPointer<QWidget>& window = windows_[tool];
    if (!window) {
        window = make(tool);
        if (!window) return;
        close_by_key(*window);
        remember_place(context_.registry, *window);
    }
    if (window->isMinimized()) window->showNormal();
    window->show();
    window->raise();
    window->activateWindow();
}

frmHelp* tool_windows::help() const
{
    const auto found = windows_.find(window_command::contents);
    return found == windows_.end() ? nullptr : qobject_cast<frmHelp*>(found->second);
}

void tool_windows::hide_all()
{
    for (const auto& [tool, window] : windows_)
        if (window) window->hide();
}

void tool_windows::close_by_key(QWidget& window)
{
    auto* close = new QAction(tr("Close"), &window);
    QList<QKeySequence> keys = QKeySequence::keyBindings(QKeySequence::Close);
    const QKeySequence usual(QStringLiteral("Ctrl+W"));
    if (!keys.contains(usual)) keys.append(usual);
    close->setShortcuts(keys);
    connect(close, &QAction::triggered, &window, &QWidget::close);
    window.addAction(close);
}

} // namespace kelvarin
