// SPDX-License-Identifier: MIT
#include "app/tool_windows.h"

#include "shell/window/frmInitials.h"
#include "tools/window/frmCal.h"

#include <algorithm>
#include <array>

namespace kelvarin
{

namespace
{

struct tool_row
{
    command tool;
    QWidget* (*make)(desktop_context& context, tool_windows& tools);
    /// What is said where there is no window yet.
    const char* missing_text;
};

QWidget* make_calculator(desktop_context& context, tool_windows&)
{
    return new frmCal(context);
}

QWidget* make_settings(desktop_context& context, tool_windows& tools)
{
    auto* window = new frmInitials(context);
    QObject::connect(window, &frmInitials::settings_changed, &tools, &tool_windows::settings_changed);
    return window;
}

constexpr std::array<tool_row, 5> rows{{
    {command::calculator, make_calculator, ""},
    {command::units, nullptr, "The units converter is not yet part of this version."},
    {command::antoine, nullptr, "The Antoine equation is not yet part of this version."},
    {command::constants, nullptr, "The table of constants is not yet part of this version."},
    {command::setup, make_settings, ""},
}};

} // namespace

tool_windows::tool_windows(desktop_context& context) : context_(context) {}

tool_windows::~tool_windows()
{
    for (const auto& [tool, window] : windows_)
        delete window;
}

bool tool_windows::show(command tool, QWidget* asked_from)
{
    const auto* row = std::ranges::find(rows, tool, &tool_row::tool);
    if (row == rows.end()) return false;
    if (!row->make) {
        context_.user.show(asked_from, {row->missing_text, box_icon::exclamation});
        return false;
    }
    QPointer<QWidget>& window = windows_[tool];
    if (!window) window = row->make(context_, *this);
    if (window->isMinimized()) window->showNormal();
    window->show();
    window->raise();
    window->activateWindow();
    return true;
}

void tool_windows::hide_all()
{
    for (const auto& [tool, window] : windows_)
        if (window) window->hide();
}

} // namespace kelvarin
