// SPDX-License-Identifier: MIT
#pragma once

#include "desktop/commands.h"
#include "desktop/user_interface.h"
#include "platform/clock.h"
#include "platform/message_box.h"
#include "platform/registry_store.h"
#include "shell/document/recovery.h"
#include "shell/settings.h"

#include <filesystem>
#include <optional>

class QAction;
class QMenu;
class QWidget;

namespace kelvarin
{

class child_window;

/// The main window as seen by the windows inside it.
class main_frame
{
public:
    virtual ~main_frame() = default;

    virtual QAction* action(window_command which) = 0;
    /// The submenu of new problems, the menu of tools, the window list with cascade and tile, and help: menus that
    /// every window shows, owned by the frame.
    virtual QMenu* new_menu() = 0;
    virtual QMenu* tools_menu() = 0;
    virtual QMenu* window_menu() = 0;
    virtual QMenu* help_menu() = 0;

    /// Takes ownership of a new window and shows it in front; beside the currently active window if `beside` and there
    /// is room.
    virtual void show_child(child_window* window, child_window* beside = nullptr) = 0;
    /// The box that refuses another problem window of the kind that `fresh` makes; nullopt if there is room.
    virtual std::optional<message_box> no_room_for(window_command /*fresh*/) const { return std::nullopt; }
    /// Activates a child, restoring it if it was minimised.
    virtual void bring_to_front(child_window& window) = 0;
    virtual child_window* active_child() const = 0;
    virtual void open_document(const std::filesystem::path& path) = 0;
    /// Opens a file as the problem that its lines hold, whatever its name.
    virtual void open_as_problem(const std::filesystem::path& path) = 0;
    /// Whether a file is a graph, a report, or by its lines a problem of some kind.
    virtual bool recognises(const std::filesystem::path& path) const = 0;
    /// Says in the status bar what is worth knowing but no reason for a box. The same words are said only once.
    virtual void say_once(const QString& text) = 0;
    /// Ends the program after a fatal box has been shown; recovery files are kept.
    virtual void end_program() = 0;
};

/// The services that a window uses; the program owns all of them.
struct desktop_context
{
    settings& store;
    registry_store& registry;
    const wall_clock& clock;
    user_interface& user;
    recovery_store& recovery;
    main_frame& frame;
};

/// Stores what was written to the registry; a failure is said in the status bar.
void store_settings(const desktop_context& context);

} // namespace kelvarin
