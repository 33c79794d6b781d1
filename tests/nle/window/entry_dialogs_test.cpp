// SPDX-License-Identifier: MIT
#include "nle_desk.h"
#include "support/window_walk.h"

#include <gmock/gmock.h>

#include <QRadioButton>

namespace
{

using namespace kelvarin;
using kelvarin::test::dialog_in_front;
using kelvarin::test::nle_desk;
using kelvarin::test::robot;
using testing::ElementsAre;
using testing::IsEmpty;

const std::string bad_name = "Variable format for '2x' not valid.\rAll variables must start with a string character "
                             "and may contain the chars A..Z, a..z, 0..9, or underscore";

TEST(EntryDialogs, ShowARefusalInItsFieldAndStayOpen)
{
    struct row
    {
        test::typed_equation typed;
        std::string box;
        /// Where the caret then is.
        const char* field;
    };
    // Each row has all the faults of the rows below it, so that the order shows.
    const row rows[] = {
        {{"2x", "y+", "one"}, "Syntax Error: extra operator at the end of the expression; +", "txtEquation"},
        {{"2x", "y+1", "one"}, "Please enter a valid numeric value for initial guess.", "txtGuess"},
        {{"2x", "y+1", "1,5"}, "Please enter a valid numeric value for initial guess.", "txtGuess"},
        {{"2x", "y+1", "1"}, bad_name, "txtVar"},
        {{"a", "y+1", "1"}, "The variable 'a' has already been defined.", "txtVar"},
        {{" y ", "y+1", "1"}, "The variable 'y' has already been defined.", "txtVar"},
    };
    nle_desk desk;
    desk.add_by_mouse({"a", "2"});
    desk.add_by_mouse({"y", "y-a", "1"});
    desk.person.click("cmdNewRoot");
    QWidget& window = dialog_in_front("frmNleNE");
    const robot dialog(window);
    for (const row& tried : rows) {
        SCOPED_TRACE(tried.box);
        dialog.type("txtVar", tried.typed.variable);
        dialog.type("txtEquation", tried.typed.expression);
        dialog.type("txtGuess", tried.typed.guess);
        desk.user.expect_box(tried.box);
        dialog.click("cmdDone");
        EXPECT_TRUE(window.isVisible());
        EXPECT_EQ(desk.content().rows.size(), 2u);
        EXPECT_EQ(window.focusWidget(), &dialog.find(tried.field));
    }
    // A name that uses itself is what an implicit equation is for.
    dialog.type("txtVar", " x ");
    dialog.type("txtEquation", " x^2-y ");
    dialog.type("txtGuess", " 3 ");
    dialog.click("cmdDone");
    EXPECT_THAT(desk.equations(), ElementsAre("a = 2", "f(y) = y-a", "f(x) = x^2-y"));
    EXPECT_EQ(desk.content().rows[2].guess, "3");
    EXPECT_EQ(desk.grid().current_row(), 3);
}

TEST(EntryDialogs, AskForTheSignOnlyWhereTheMethodLooksAtIt)
{
    nle_desk desk;
    desk.person.click("cmdNewRoot");
    {
        QWidget& window = dialog_in_front("frmNleNE");
        const robot dialog(window);
        EXPECT_FALSE(dialog.is_shown("optConstrained_1"));
        EXPECT_THAT(test::faults_of(window), IsEmpty());
        dialog.type("txtVar", "k");
        EXPECT_EQ(dialog.text("lblGuess"), "k(0)");
        dialog.click("cmdClear");
        EXPECT_EQ(dialog.text("txtVar"), "");
        EXPECT_EQ(dialog.text("lblGuess"), "(0)");
        dialog.click("cmdCancel");
    }
    EXPECT_THAT(desk.content().rows, IsEmpty());
    EXPECT_TRUE(desk.window.document().problem_saved());

    desk.person.choose("cmbMethod", "constrained");
    const char* const options[] = {"optConstrained_0", "optConstrained_1", "optConstrained_2"};
    const char* const guesses[] = {"1", "1 p", "1 ap"};
    for (int i = 0; i < 3; ++i) {
        desk.person.click("cmdNewRoot");
        QWidget& window = dialog_in_front("frmNleNE");
        const robot dialog(window);
        EXPECT_THAT(test::faults_of(window), IsEmpty());
        const std::string name = "x" + std::to_string(i);
        dialog.type("txtVar", name);
        EXPECT_EQ(dialog.text("lblConstrained"), name + " solution should be:");
        dialog.type("txtEquation", "2-" + name);
        dialog.type("txtGuess", "1");
        dialog.click(options[i]);
        dialog.click("cmdDone");
        EXPECT_EQ(desk.content().rows.back().guess, guesses[i]);
    }
    // An edit finds the option again, and keeps it under another method.
    desk.grid().set_current_row(3);
    desk.person.click("cmdEdit");
    const robot dialog(dialog_in_front("frmNleNE"));
    EXPECT_TRUE(dialog.find<QRadioButton>("optConstrained_2").isChecked());
    EXPECT_EQ(dialog.text("txtGuess"), "1");
    dialog.type("txtGuess", "4");
    dialog.click("cmdDone");
    EXPECT_EQ(desk.cell(3, 2), "4 ap");
}

TEST(EntryDialogs, EditARowWithItsCommentFromAnyGesture)
{
    nle_desk desk;
    desk.add_by_mouse({"x", "x-a", "1", "first"});
    desk.add_by_mouse({"a", "3", "", "second"});
    desk.grid().setFocus();
    robot::press(Qt::Key_Up);
    robot::press(Qt::Key_Return);
    {
        const robot dialog(dialog_in_front("frmNleNE"));
        EXPECT_EQ(dialog.text("txtVar"), "x");
        EXPECT_EQ(dialog.text("txtEquation"), "x-a");
        EXPECT_EQ(dialog.text("txtComment"), "first");
        // The row's own name is no second definition.
        dialog.type("txtEquation", "x-2*a");
        dialog.click("cmdDone");
    }
    desk.grid().set_current_row(2);
    desk.choose("Edit", "mnuEdit");
    const robot dialog(dialog_in_front("frmNleEE"));
    EXPECT_EQ(dialog.text("txtEquation"), "3");
    dialog.type("txtVar", "a");
    dialog.type("txtComment", "changed");
    robot::press(Qt::Key_Return);
    EXPECT_THAT(desk.content().rows,
                ElementsAre(equation_row{"f(x) = x-2*a", "1", "first"}, equation_row{"a = 3", "n.a.", "changed"}));
    EXPECT_EQ(desk.window.document().undo_step(), "Edit equation");
}

} // namespace
