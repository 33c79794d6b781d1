// SPDX-License-Identifier: MIT
#include "support/test_desk.h"

#include <QAction>

#include <algorithm>

namespace kelvarin::test
{

test_frame::test_frame() : actions_(std::make_unique<command_actions>(&owner_))
{
    for (const window_command which : all_commands())
        owner_.addAction(action(which));
    QObject::connect(actions_.get(), &command_actions::triggered, &owner_, [this](window_command which) {
        child_window* active = active_child();
        if (active && active->can(which)) active->perform(which);
    });
}

test_frame::~test_frame()
{
    // Without questions: what a test leaves open is none of its concerns.
    for (child_window* child : children())
        delete child;
}

void test_frame::bring_to_front(child_window& window)
{
    window.activateWindow();
}

void test_frame::show_child(child_window* window, child_window*)
{
    children_.emplace_back(window);
    QObject::connect(window, &child_window::state_changed, &owner_, [this] { refresh_actions(); });
    // The shortcuts of the commands work in this window too.
    for (const window_command which : all_commands())
        window->addAction(action(which));
    window->show();
    window->activateWindow();
    refresh_actions();
}

child_window* test_frame::active_child() const
{
    for (auto child = children_.rbegin(); child != children_.rend(); ++child)
        if (*child && (*child)->isVisible() && (*child)->isActiveWindow()) return *child;
    for (auto child = children_.rbegin(); child != children_.rend(); ++child)
        if (*child && (*child)->isVisible()) return *child;
    return nullptr;
}

std::vector<child_window*> test_frame::children() const
{
    std::vector<child_window*> alive;
    for (const auto& child : children_)
        if (child) alive.push_back(child);
    return alive;
}

void test_frame::refresh_actions()
{
    const child_window* active = active_child();
    for (const window_command which : all_commands())
        action(which)->setEnabled(active && active->can(which));
}

} // namespace kelvarin::test
