// SPDX-License-Identifier: MIT
#pragma once

#include "desktop/child_window.h"
#include "desktop/commands.h"
#include "desktop/desktop_context.h"
#include "support/scratch_folder.h"
#include "support/scripted_user.h"

#include <QMenu>
#include <QPointer>
#include <QStringList>
#include <QWidget>

#include <memory>
#include <vector>

namespace kelvarin::test
{

/// A frame without a main window: its children are windows of their own; commands go to the one shown last.
class test_frame final : public main_frame
{
public:
    test_frame();
    ~test_frame() override;

    QAction* action(window_command which) override { return actions_->action(which); }
    QMenu* new_menu() override { return &new_menu_; }
    QMenu* tools_menu() override { return &tools_menu_; }
    QMenu* window_menu() override { return &window_menu_; }
    QMenu* help_menu() override { return &help_menu_; }
    void show_child(child_window* window, child_window* beside = nullptr) override;
    void bring_to_front(child_window& window) override;
    child_window* active_child() const override;
    void open_document(const std::filesystem::path& path) override { opened_.push_back(path); }
    void open_as_problem(const std::filesystem::path& path) override { opened_.push_back(path); }
    bool recognises(const std::filesystem::path&) const override { return recognises_files; }
    void say_once(const QString& text) override { said_.append(text); }
    void end_program() override { ++ended_; }

    /// All children that still exist, in the order in which they came.
    std::vector<child_window*> children() const;
    const std::vector<std::filesystem::path>& opened() const { return opened_; }
    int ended() const { return ended_; }
    const QStringList& said() const { return said_; }

    /// Whether files are of some kind.
    bool recognises_files = true;

private:
    void refresh_actions();

    QWidget owner_;
    std::unique_ptr<command_actions> actions_;
    QMenu new_menu_{QStringLiteral("&New")};
    QMenu tools_menu_{QStringLiteral("&Tools")};
    QMenu window_menu_{QStringLiteral("&Window")};
    QMenu help_menu_{QStringLiteral("&Help")};
    std::vector<QPointer<child_window>> children_;
    std::vector<std::filesystem::path> opened_;
    QStringList said_;
    int ended_ = 0;
};

/// All that a window under test works with.
struct test_desk
{
    scratch_folder folder;
    settings store;
    memory_registry registry;
    fixed_clock clock;
    scripted_user user;
    recovery_store recovery{folder.path() / "recovery"};
    test_frame frame;
    desktop_context context{store, registry, clock, user, recovery, frame};
};

} // namespace kelvarin::test
