// SPDX-License-Identifier: MIT
#pragma once

#include "shell/window/frmSolution.h"
#include "support/robot.h"
#include "support/test_desk.h"

#include <gtest/gtest.h>

#include <QMenu>
#include <QString>

#include <stdexcept>
#include <string>
#include <vector>

namespace kelvarin::test
{

/// A problem window of any kind, and the person before it.
template <class Window> struct problem_desk : test_desk
{
    Window& window;
    robot person;

    problem_desk() : window(*new Window(context)), person(window)
    {
        frame.show_child(&window);
        window.resize(window.sizeHint());
        to_front();
    }

    const auto& content() const { return window.document().content(); }

    QMenu& menu(const char* title)
    {
        for (QMenu* found : window.menus())
            if (QString(found->title()).remove(QLatin1Char('&')) == QLatin1String(title)) return *found;
        throw std::runtime_error(std::string("no menu ") + title);
    }
    void choose(const char* menu_title, const char* item) { person.trigger(menu(menu_title), item); }
    void set_title(const std::string& title)
    {
        user.expect_input("Enter problem title.", title);
        choose("Edit", "mnuTitle");
    }
    void put_on_clipboard(const std::string& text) { user.copy_text(QString::fromStdString(text)); }

    /// Activates the window, as the desktop does when the one before it has closed.
    void to_front() const
    {
        window.activateWindow();
        if (!wait_until([this] { return window.isActiveWindow(); }))
            throw std::runtime_error("the window stays behind");
    }
    /// Writes a problem file and opens it in the window.
    void open_text(const std::string& text)
    {
        ASSERT_TRUE(window.open(folder.write("problem.kvr", text)));
        settle();
    }
    /// The same file in a further window.
    Window& open_again(const std::string& name)
    {
        auto& further = *new Window(context);
        frame.show_child(&further);
        if (!further.open(folder / name)) throw std::runtime_error("the file is refused");
        return further;
    }

    /// The report that comes of `act`.
    template <class Act> frmSolution& report_of(Act act)
    {
        const std::size_t before = frame.children().size();
        act();
        const bool came = wait_until([&] { return frame.children().size() > before; }, 60000);
        if (!came) throw std::runtime_error("no report came");
        return dynamic_cast<frmSolution&>(*frame.children().back());
    }
    frmSolution& solve_by_mouse()
    {
        return report_of([this] { person.click("cmdRun"); });
    }
    frmSolution& solve_by_key()
    {
        return report_of([] { robot::press(Qt::Key_F5); });
    }
    void run_by_mouse()
    {
        person.click("cmdRun");
        ASSERT_TRUE(wait_until([this] { return !window.is_running(); }, 60000));
    }
};

/// The number of a solution: that behind the "#" of its title.
inline int number_of(const frmSolution& report)
{
    return report.windowTitle().section(QLatin1Char('#'), 1).remove(QStringLiteral("[*]")).toInt();
}

} // namespace kelvarin::test
