// SPDX-License-Identifier: MIT
#pragma once

#include "app/child_area.h"
#include "app/frmMDIKelvarin.h"
#include "nle/window/frmNLE.h"
#include "support/robot.h"
#include "support/scratch_folder.h"
#include "support/scripted_user.h"

#include <gtest/gtest.h>

#include <QMdiSubWindow>
#include <QMenu>
#include <QMenuBar>

#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace kelvarin::test
{

/// A registry that remembers the order in which values are written.
class listening_registry final : public memory_registry
{
public:
    void write(std::string_view key, std::string_view value_name, std::string_view value) override
    {
        memory_registry::write(key, value_name, value);
        written_.emplace_back(key == registry_root ? std::string(value_name) : std::string(key));
    }
    std::optional<file_failure> flush() override { return failure; }

    std::optional<file_failure> failure;
    std::vector<std::string> take_written() { return std::exchange(written_, {}); }

private:
    std::vector<std::string> written_;
};

/// A child that does nothing but tell what it was asked for.
class stand_in final : public child_window
{
public:
    stand_in(desktop_context& context, const char* kind) : child_window(context, kind) {}

    QList<QMenu*> menus() override { return {&menu}; }
    bool can(window_command which) const override { return possible.contains(which); }
    void perform(window_command which) override
    {
        performed.append(which);
        if (which == window_command::stop) set_running(false);
    }
    QString caption_of(window_command which) const override
    {
        return which == window_command::undo ? undo_caption : QString();
    }
    bool is_running() const override { return running; }
    double fraction_done() const override { return 0.25; }

    void set_running(bool now)
    {
        running = now;
        if (now)
            possible.append(window_command::stop);
        else
            possible.removeAll(window_command::stop);
        emit state_changed();
    }
    void tell() { emit state_changed(); }

    QMenu menu{QStringLiteral("&Report")};
    QList<window_command> possible;
    QList<window_command> performed;
    QString undo_caption;
    bool running = false;
};

/// The row of the start page with this example.
inline QToolButton& example_row(const QWidget& window, const char* title)
{
    for (QToolButton* row : window.findChildren<QToolButton*>())
        if (row->objectName().startsWith(QLatin1String("cmdExample_")) && row->text() == QLatin1String(title))
            return *row;
    throw std::runtime_error(std::string("no example ") + title);
}
inline constexpr const char* cable = "Sag and tension of a cable between two masts";

/// Gives a problem a title: an example by itself holds no work that could be lost.
inline void enter_title(child_window& problem, scripted_user& user)
{
    user.expect_input("Enter problem title.", "My own");
    for (QMenu* menu : problem.menus())
        if (auto* item = menu->findChild<QAction*>(QStringLiteral("mnuTitle"))) item->trigger();
}

/// The main window with all that it works with.
struct main_desk
{
    scratch_folder folder;
    listening_registry registry;
    settings store{registry};
    fixed_clock clock;
    scripted_user user;
    recovery_store recovery{folder.path() / "recovery"};
    /// For children that tests make; it outlives them.
    std::optional<desktop_context> context;
    std::unique_ptr<frmMDIKelvarin> window;
    int exit_status = -1;

    main_desk() { start(); }

    void start()
    {
        window = std::make_unique<frmMDIKelvarin>(program_services{store, registry, clock, user, recovery});
        context.emplace(desktop_context{store, registry, clock, user, recovery, *window});
        QObject::connect(window.get(), &frmMDIKelvarin::ended, window.get(),
                         [this](int status) { exit_status = status; });
        window->show();
        window->activateWindow();
        settle();
    }

    robot person() { return robot(*window); }
    child_area& area() { return *window->findChild<child_area*>(); }
    std::vector<child_window*> children() { return area().children(); }
    frmNLE& front_problem() { return dynamic_cast<frmNLE&>(*window->active_child()); }

    stand_in& show_stand_in(const char* kind, child_window* beside = nullptr)
    {
        auto* child = new stand_in(*context, kind);
        window->show_child(child, beside);
        settle();
        return *child;
    }

    std::vector<std::string> bar_titles()
    {
        std::vector<std::string> titles;
        for (const QAction* menu : window->menuBar()->actions())
            titles.push_back(menu->text().toStdString());
        return titles;
    }
    void press_toolbar(const char* key)
    {
        person().click(key);
        settle();
    }
    void run(window_command which)
    {
        ASSERT_TRUE(window->action(which)->isEnabled());
        window->action(which)->trigger();
        settle();
    }
    frmNLE& new_problem()
    {
        press_toolbar("nle");
        return front_problem();
    }
    /// One that would be lost.
    frmNLE& new_unsaved_problem()
    {
        frmNLE& problem = new_problem();
        problem.load_sample(1);
        enter_title(problem, user);
        return problem;
    }
};

inline constexpr const char* unsaved_question = "NLE Problem not saved. Do you want to save it before closing ?";

} // namespace kelvarin::test
