// SPDX-License-Identifier: MIT
#pragma once

#include "desktop/commands.h"
#include "desktop/user_interface.h"
#include "platform/clock.h"
#include "platform/registry_store.h"
#include "shell/document/recovery.h"
#include "shell/settings.h"

#include <filesystem>

class QAction;
class QMenu;
class QWidget;

namespace kelvarin
{

class child_window;

/// What the windows inside the main window ask of it.
class main_frame
{
public:
    virtual ~main_frame() = default;

    virtual QAction* action(window_command which) = 0;
    /// The submenu of new problems, the menu of tools, the window list with cascade and tile, and help: menus
    /// that every window shows, owned by the frame.
    virtual QMenu* new_menu() = 0;
    virtual QMenu* tools_menu() = 0;
    virtual QMenu* window_menu() = 0;
    virtual QMenu* help_menu() = 0;

    /// Takes a new window over and shows it in front; beside the window that is in front now where `beside`
    /// and the room allow it.
    virtual void show_child(child_window* window, bool beside = false) = 0;
    virtual child_window* active_child() const = 0;
    virtual void open_document(const std::filesystem::path& path) = 0;
    /// A box or dialog about something must end the program, after it was seen: recovery files stay.
    virtual void end_program() = 0;
};

/// What a window works with; the program owns all of it.
struct desktop_context
{
    settings& store;
    registry_store& registry;
    const wall_clock& clock;
    user_interface& user;
    recovery_store& recovery;
    main_frame& frame;
};

} // namespace kelvarin
