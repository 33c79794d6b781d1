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

/// A window inside the main window: a problem, a report, a graph. The main window shows its menus and panels
/// while it is in front, and routes commands to it. Its object name is the name of its kind, "frmNLE".
class child_window : public QWidget
{
    Q_OBJECT

public:
    explicit child_window(desktop_context& context, const char* kind);

    /// The menus that take the main window's bar while this window is in front; they stay owned by this
    /// window or by the frame.
    virtual QList<QMenu*> menus() = 0;
    /// Whether a command makes sense now; those of the main window itself are never asked for.
    virtual bool can(window_command) const { return false; }
    virtual void perform(window_command) {}
    /// What a command is called while this window is in front ("&Undo Remove equation"); empty for its usual
    /// caption.
    virtual QString caption_of(window_command) const { return {}; }

    /// Panels 1 and 2 of the main window's status bar.
    virtual QString file_panel() const;
    virtual QString title_panel() const;

    /// A run is under way, and how far it is.
    virtual bool is_running() const { return false; }
    virtual double fraction_done() const { return 0.0; }

    /// Closes this window with the frame around it, if it agrees; true where it did.
    bool close_with_frame();

signals:
    /// What the functions above would answer has changed.
    void state_changed();

protected:
    desktop_context& context() const { return context_; }

private:
    desktop_context& context_;
};

} // namespace kelvarin
