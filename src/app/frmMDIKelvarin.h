// SPDX-License-Identifier: MIT
#pragma once

#include "desktop/commands.h"
#include "desktop/desktop_context.h"
#include "shell/window_placement.h"

#include <QMainWindow>
#include <QPointer>
#include <QSet>
#include <QString>

#include <filesystem>
#include <map>
#include <memory>
#include <optional>
#include <vector>

class QSessionManager;
class QStackedWidget;

namespace kelvarin
{

class child_area;
class focused_field;
class frmRecovery;
class main_menus;
class main_status_bar;
class problem_window;
class start_page;
class tool_windows;
struct problem_window_kind;

/// The program's services for its windows; they must outlive the windows.
struct program_services
{
    settings& store;
    registry_store& registry;
    const wall_clock& clock;
    user_interface& user;
    recovery_store& recovery;
};

struct problem_window_counts
{
    int all = 0;
    int regressions = 0;
};

/// The main window: problems, reports and graphs are its children. It owns toolbar, main menus and status bar, routes
/// commands to the active child, opens documents and ends the program.
class frmMDIKelvarin : public QMainWindow, public main_frame
{
    Q_OBJECT

public:
    explicit frmMDIKelvarin(const program_services& services);
    ~frmMDIKelvarin() override;

    QAction* action(window_command which) override { return commands_->action(which); }
    QMenu* new_menu() override;
    QMenu* tools_menu() override;
    QMenu* window_menu() override;
    QMenu* help_menu() override;
    void show_child(child_window* window, child_window* beside = nullptr) override;
    std::optional<message_box> no_room_for(window_command fresh) const override;
    void bring_to_front(child_window& window) override;
    child_window* active_child() const override;
    /// Opens a file according to its kind: in the active window if that is of the kind and idle, else in a new one. A
    /// missing file is ignored.
    void open_document(const std::filesystem::path& path) override;
    void open_as_problem(const std::filesystem::path& path) override;
    bool recognises(const std::filesystem::path& path) const override;
    void say_once(const QString& text) override;
    void end_program() override;

    /// Opens several files: each after the first in a window of its own.
    void open_documents(const std::vector<std::filesystem::path>& paths);
    /// Shows the dialog of File, Open.
    void open_file_dialog();
    /// Closes the children from the last to the first, stopping at the first that refuses.
    void close_all();
    /// Shows the progress of `x` between a start and an end.
    void set_progress(double x, double x_start, double x_end);
    /// The numbers of open windows of the kinds whose number is limited.
    problem_window_counts count_problem_windows() const;

    /// Shows a tool beside this window, which may be hidden.
    void show_tool(window_command tool);
    /// Offers the recovered problems of ended programs, if there are any.
    void offer_recovered_problems();

    /// Handles the end of the desktop session: asks what to save, and writes recovery copies of the rest.
    void commit_session(QSessionManager& session);
    /// Asks every child whether it may close, without closing any. Returns false at the first refusal.
    bool may_end();

signals:
    /// The program is to exit with this status.
    void ended(int status);

protected:
    void closeEvent(QCloseEvent* event) override;

private:
    void build_ui();
    void connect_parts();
    /// Restores the window's last placement, or uses that of a first start.
    void restore_window_placement();
    placement present_placement() const;
    void apply_settings();

    /// Activates a child that will ask before it closes.
    void show_what_would_ask(child_window& child);
    void show_front_child();
    void refresh_commands();
    void refresh_panels();
    bool can(window_command which) const;
    void run_command(window_command which);
    bool run_window_command(window_command which);
    void run_child_command(window_command which);
    /// Shows the help at the page of the control that has the keyboard.
    void show_contents();
    void new_window_of_this_kind();

    void show_message(const char* text);
    /// Shows a new window of a kind in front. Returns null after showing a box if there may be none.
    problem_window* new_window(const problem_window_kind& kind);
    void show_default_window(const problem_window_kind& kind);
    void open_in(const std::filesystem::path& path, bool in_new_window);
    void open_problem(const problem_window_kind& kind, const std::filesystem::path& path, bool in_new_window);
    void open_example(const std::filesystem::path& path);
    /// Opens an example that a page of the help names, in this window even if it was hidden.
    void open_example_by_name(const QString& file);
    void open_recovered(const recovery_store::found_problem& problem);
    void discard_recovered(const recovery_store::found_problem& problem);

    bool ask_runs_to_stop();
    void close_when_runs_have_stopped();
    void keep_recovery_copies();
    std::vector<problem_window*> problem_windows() const;
    void unload();

    desktop_context context_;
    std::unique_ptr<command_actions> commands_;
    std::unique_ptr<tool_windows> tools_;
    child_area* area_ = nullptr;
    start_page* start_page_ = nullptr;
    QStackedWidget* pages_ = nullptr;
    main_menus* menus_ = nullptr;
    main_status_bar* StbMDI_ = nullptr;
    focused_field* field_ = nullptr;
    QPointer<frmRecovery> recovery_bar_;
    /// The window that File, New shows for each kind.
    std::map<window_command, QPointer<problem_window>> default_windows_;
    QSet<QString> said_;
    bool close_after_runs_ = false;
    bool ended_ = false;
};

} // namespace kelvarin
