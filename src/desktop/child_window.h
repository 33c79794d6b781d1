// SPDX-License-Identifier: MIT
#pragma once

#include "desktop/commands.h"
#include "desktop/desktop_context.h"

#include <QList>
#include <QString>
#include <QWidget>

class QMenu;

namespace kelvarin
{

class problem_window;

/// A window inside the main window: a problem, a report, a graph. The main window shows its menus and panels while it
/// is active, and routes commands to it. Its object name is the name of its class, such as "frmNLE".
class child_window : public QWidget
{
    Q_OBJECT

public:
    explicit child_window(desktop_context& context, const char* kind);

    /// The menus shown in the main window's menu bar while this window is active; they are owned by this window or by
    /// the frame.
    virtual QList<QMenu*> menus() = 0;
    /// Whether a command is available now; never called for the commands of the main window itself.
    virtual bool can(window_command) const { return false; }
    virtual void perform(window_command) {}
    /// The caption of a command while this window is active ("&Undo Remove equation"); empty for the default caption.
    virtual QString caption_of(window_command) const { return {}; }

    /// Panels 1 and 2 of the main window's status bar.
    virtual QString file_panel() const;
    virtual QString title_panel() const;

    /// Whether a run is under way, and which fraction (0 to 1) of it is done.
    virtual bool is_running() const { return false; }
    virtual double fraction_done() const { return 0.0; }

    /// The problem that this window shows or reports on; null if there is none.
    virtual problem_window* its_problem() { return nullptr; }

    /// Closes this window with the frame around it, unless it refuses. Returns true if it was closed.
    bool close_with_frame();

signals:
    /// A result of the functions above has changed.
    void state_changed();

protected:
    desktop_context& context() const { return context_; }

private:
    desktop_context& context_;
};

} // namespace kelvarin
