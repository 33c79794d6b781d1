// SPDX-License-Identifier: MIT
// The main window: closing of children and the end of the program.
#include "app/child_area.h"
#include "app/frmMDIKelvarin.h"
#include "app/tool_windows.h"
#include "desktop/problem_window.h"

#include <QApplication>
#include <QCloseEvent>
#include <QSessionManager>

#include <ranges>

namespace kelvarin
{

void frmMDIKelvarin::close_all()
{
    for (child_window* child : area_->children() | std::views::reverse) {
        // A busy child closes by itself when its run has stopped, so it doesn't refuse.
        const bool is_running = child->is_running();
        show_what_would_ask(*child);
        if (!child->close_with_frame() && !is_running) return;
    }
}

void frmMDIKelvarin::show_what_would_ask(child_window& child)
{
    const auto* problem = qobject_cast<const problem_window*>(&child);
    // The window must be visible when the question about it is asked.
    if (problem && !problem->document().problem_saved()) area_->bring_to_front(child);
}

std::vector<problem_window*> frmMDIKelvarin::problem_windows() const
{
    std::vector<problem_window*> problems;
    for (child_window* child : area_->children())
        if (auto* problem = qobject_cast<problem_window*>(child)) problems.push_back(problem);
    return problems;
}

bool frmMDIKelvarin::ask_runs_to_stop()
{
    bool any = false;
    for (child_window* child : area_->children()) {
        if (!child->is_running()) continue;
        any = true;
        child->perform(window_command::stop);
    }
    return any;
}

void frmMDIKelvarin::close_when_runs_have_stopped()
{
    if (!close_after_runs_) return;
    for (const child_window* child : area_->children())
        if (child->is_running()) return;
    close_after_runs_ = false;
    // Queued: the signal comes from a window that is still handling the end of its run.
    QMetaObject::invokeMethod(this, &QWidget::close, Qt::QueuedConnection);
}

bool frmMDIKelvarin::may_end()
{
    for (child_window* child : area_->children() | std::views::reverse) {
        show_what_would_ask(*child);
        // Only asked, not closed: if a later one refuses, all of them stay.
        QCloseEvent asked;
        QApplication::sendEvent(child, &asked);
        if (asked.isAccepted()) continue;
        keep_recovery_copies();
        return false;
    }
    return true;
}

void frmMDIKelvarin::closeEvent(QCloseEvent* event)
{
    if (ended_) return event->accept();
    close_after_runs_ = true;
    if (ask_runs_to_stop()) return event->ignore();
    close_after_runs_ = false;
    if (!may_end()) return event->ignore();
    unload();
    event->accept();
}

void frmMDIKelvarin::unload()
{
    ended_ = true;
    tools_->hide_all();
    save_placement(context_.registry, present_placement());
    context_.store.save_settings(context_.registry);
    // A failure to write the registry can't be handled at this point.
    static_cast<void>(context_.registry.flush());
    emit ended(0);
}

void frmMDIKelvarin::keep_recovery_copies()
{
    for (problem_window* problem : problem_windows())
        problem->keep_recovery_copy();
}

void frmMDIKelvarin::end_program()
{
    if (ended_) return;
    ended_ = true;
    keep_recovery_copies();
    tools_->hide_all();
    hide();
    emit ended(1);
}

void frmMDIKelvarin::commit_session(QSessionManager& session)
{
    if (ended_) return;
    if (session.allowsInteraction()) {
        if (!may_end()) session.cancel();
        session.release();
    }
    keep_recovery_copies();
}

} // namespace kelvarin
