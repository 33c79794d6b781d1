// SPDX-License-Identifier: MIT
#pragma once

#include "nle/equations/window/equation_grid.h"
#include "nle/equations/window/problem_status.h"
#include "nle/window/frmNLE.h"
#include "shell/window/frmSolution.h"
#include "support/robot.h"
#include "support/test_desk.h"

#include <gtest/gtest.h>

#include <stdexcept>
#include <string>
#include <vector>

namespace kelvarin::test
{

/// What stands in the fields of a new equation; the guess is empty for an explicit one.
struct typed_equation
{
    std::string variable, expression, guess = {}, comment = {};
};

/// A shown dialog that takes the keys.
inline QWidget& dialog_in_front(const char* name)
{
    QWidget& dialog = top_window(name);
    if (!wait_until([&] { return dialog.isActiveWindow(); })) throw std::runtime_error("the dialog stays behind");
    return dialog;
}

/// A nonlinear window, and what a person does in it with the mouse.
struct nle_desk : test_desk
{
    frmNLE& window;
    robot person;

    nle_desk() : window(*new frmNLE(context)), person(window)
    {
        frame.show_child(&window);
        window.resize(window.sizeHint());
        to_front();
    }

    equation_grid& grid() const { return person.find<equation_grid>("grdRoots"); }
    const nle_content& content() const { return window.document().content(); }
    std::vector<std::string> equations() const
    {
        std::vector<std::string> texts;
        for (const equation_row& row : content().rows)
            texts.push_back(row.equation);
        return texts;
    }
    std::string cell(int row, int column) const
    {
        const QAbstractItemModel& model = *grid().model();
        return model.index(row - 1, column - 1).data().toString().toStdString();
    }
    int shown_rows() const { return grid().model()->rowCount(); }
    std::string third_panel() const
    {
        return person.find<problem_status>("stbNLE").panel_text(3).trimmed().toStdString();
    }
    QMenu& menu(const char* title)
    {
        for (QMenu* found : window.menus())
            if (QString(found->title()).remove(QLatin1Char('&')) == QLatin1String(title)) return *found;
        throw std::runtime_error(std::string("no menu ") + title);
    }
    void choose(const char* menu_title, const char* item) { person.trigger(menu(menu_title), item); }

    /// Activates the window, as the desktop does when the one before it has closed.
    void to_front() const
    {
        window.activateWindow();
        if (!wait_until([this] { return window.isActiveWindow(); }))
            throw std::runtime_error("the window stays behind");
    }
    void add_by_mouse(const typed_equation& equation)
    {
        const bool implicit = !equation.guess.empty();
        person.click(implicit ? "cmdNewRoot" : "cmdNewEquation");
        const robot dialog(dialog_in_front(implicit ? "frmNleNE" : "frmNleEE"));
        dialog.type("txtVar", equation.variable);
        dialog.type("txtEquation", equation.expression);
        if (implicit) dialog.type("txtGuess", equation.guess);
        dialog.type("txtComment", equation.comment);
        dialog.click("cmdDone");
        to_front();
    }
    void bounds_by_mouse(const std::string& lower, const std::string& upper)
    {
        person.type("txtnle_min_ini_guess", lower);
        person.type("txtnle_max_ini_guess", upper);
    }

    /// The report that comes next.
    frmSolution& next_report(std::size_t children_before)
    {
        const bool came = wait_until([&] { return frame.children().size() > children_before; }, 60000);
        if (!came) throw std::runtime_error("no report came");
        return dynamic_cast<frmSolution&>(*frame.children().back());
    }
    frmSolution& solve_by_mouse()
    {
        const std::size_t before = frame.children().size();
        person.click("cmdRun");
        return next_report(before);
    }
    void wait_for_end_of_run()
    {
        ASSERT_TRUE(wait_until([this] { return !window.is_running(); }, 60000));
    }
};

/// Writes a problem file and opens it in a new window.
inline void open_text(nle_desk& desk, const std::string& text)
{
    ASSERT_TRUE(desk.window.open(desk.folder.write("problem.kvr", text)));
    settle();
}

} // namespace kelvarin::test
