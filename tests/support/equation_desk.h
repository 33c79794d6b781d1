// SPDX-License-Identifier: MIT
#pragma once

#include "nle/equations/window/equation_grid.h"
#include "nle/equations/window/equation_grid_model.h"
#include "nle/equations/window/problem_status.h"
#include "support/problem_desk.h"

#include <QApplication>
#include <QTest>

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

/// The names of a dialog, of its fields and of the button that opens it.
struct entry_names
{
    const char* button = "";
    const char* dialog = "";
    const char* variable = "txtVar";
    const char* expression = "txtEquation";
    const char* comment = "txtComment";
};

struct equation_desk_names
{
    const char* grid = "";
    const char* status = "";
    entry_names implicit_entry;
    entry_names explicit_entry;
};

/// A window of equations, and what a person does in it with the mouse.
template <class Window> struct equation_desk : problem_desk<Window>
{
    const equation_desk_names names;

    explicit equation_desk(const equation_desk_names& control_names) : names(control_names) {}

    equation_grid& grid() const { return this->person.template find<equation_grid>(names.grid); }
    std::vector<std::string> equations() const
    {
        std::vector<std::string> texts;
        for (const equation_row& row : this->content().rows)
            texts.push_back(row.equation);
        return texts;
    }
    std::string cell(int row, int column) const
    {
        const QAbstractItemModel& model = *grid().model();
        return model.index(row - 1, column - 1).data().toString().toStdString();
    }
    /// The parts of the equations that a message has marked.
    std::vector<std::string> marked_texts() const
    {
        const auto& model = dynamic_cast<const equation_grid_model&>(*grid().model());
        std::vector<std::string> marked;
        for (int row = 0; row < model.rowCount(); ++row)
            for (const text_span& span : model.spans(row))
                if (span.meaning == text_meaning::marked)
                    marked.push_back(model.index(row, 0).data().toString().mid(span.start, span.length).toStdString());
        return marked;
    }
    int shown_rows() const { return grid().model()->rowCount(); }
    std::string third_panel() const
    {
        return this->person.template find<problem_status>(names.status).panel_text(3).trimmed().toStdString();
    }

    /// Double click on a cell (both from 1).
    void double_click(int row, int column) const
    {
        const QPoint place = grid().visualRect(grid().model()->index(row - 1, column - 1)).center();
        QTest::mouseClick(grid().viewport(), Qt::LeftButton, {}, place);
        QTest::mouseDClick(grid().viewport(), Qt::LeftButton, {}, place);
        settle();
    }
    void add_by_mouse(const typed_equation& equation)
    {
        const bool implicit = !equation.guess.empty();
        const entry_names& entry = implicit ? names.implicit_entry : names.explicit_entry;
        this->person.click(entry.button);
        const robot dialog(dialog_in_front(entry.dialog));
        dialog.type(entry.variable, equation.variable);
        dialog.type(entry.expression, equation.expression);
        if (implicit) dialog.type("txtGuess", equation.guess);
        dialog.type(entry.comment, equation.comment);
        dialog.click("cmdDone");
        decline_next();
        this->to_front();
    }
    /// Done on a new row offers the next undefined name.
    void decline_next() const
    {
        settle();
        QWidget* offered = QApplication::activeModalWidget();
        if (offered && offered->objectName() == QLatin1String(names.explicit_entry.dialog))
            robot(*offered).click("cmdCancel");
    }
    /// The same, with the keys that follow each other in the dialogs' fields.
    void add_by_keys(const typed_equation& equation, Qt::Key implicit_key)
    {
        const bool implicit = !equation.guess.empty();
        robot::press(implicit ? implicit_key : Qt::Key_A, Qt::AltModifier);
        dialog_in_front((implicit ? names.implicit_entry : names.explicit_entry).dialog);
        robot::keys(equation.variable);
        robot::press(Qt::Key_Tab);
        robot::keys(equation.expression);
        robot::press(Qt::Key_Tab);
        if (implicit) {
            robot::keys(equation.guess);
            robot::press(Qt::Key_Tab);
        }
        robot::keys(equation.comment);
        robot::press(Qt::Key_Return);
        decline_next();
        this->to_front();
    }
};

} // namespace kelvarin::test
