// SPDX-License-Identifier: MIT
#pragma once

#include "nle/equations/window/equation_grid.h"
#include "nle/equations/window/problem_status.h"
#include "nle/window/frmNLE.h"
#include "support/problem_desk.h"

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
struct nle_desk : problem_desk<frmNLE>
{
    equation_grid& grid() const { return person.find<equation_grid>("grdRoots"); }
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
};

} // namespace kelvarin::test
