// SPDX-License-Identifier: MIT
#pragma once

#include "desktop/commands.h"
#include "desktop/desktop_context.h"

#include <QList>
#include <QPointer>
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
    ~child_window() override;

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

    /// The widget in this window that has the keyboard, or had it when the window was last in front; null if none had.
    QWidget* focus_in_window() const;
    /// Gives the keyboard back to a widget of this window as soon as the window is in front; does nothing for a widget
    /// that can not take it.
    void give_focus_to(QWidget* widget);
    /// To be called when the window has come to the front, and when it is there no more. In the background it does not
    /// lose the place of the keyboard to what the window system chooses meanwhile.
    void set_in_front(bool in_front);

    /// Closes this window with the frame around it, unless it refuses. Returns true if it was closed.
    bool close_with_frame();

signals:
    /// A result of the functions above has changed.
    void state_changed();

protected:
    desktop_context& context() const { return context_; }

private:
    desktop_context& context_;
    QPointer<QWidget> last_focus_;
    bool comes_to_front_ = false;
    bool in_front_ = false;
};

} // namespace kelvarin
