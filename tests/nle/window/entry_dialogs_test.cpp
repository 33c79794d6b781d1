// SPDX-License-Identifier: MIT
#include "nle_desk.h"
#include "support/window_walk.h"

#include <gmock/gmock.h>

#include <QRadioButton>

namespace kelvarin::test
{

using testing::ElementsAre;
using testing::IsEmpty;

TEST(EntryDialogs, ShowARefusalInItsFieldAndStayOpen)
{
    nle_desk desk;
    desk.add_by_mouse({"y", "y-2", "1"});
    desk.person.click("cmdNewRoot");
    QWidget& window = dialog_in_front("frmNleNE");
    const robot dialog(window);
    dialog.type("txtVar", " x ");
    dialog.type("txtEquation", " x^2-y ");
    dialog.type("txtGuess", "1,5");
    desk.user.expect_box("Please enter a valid numeric value for initial guess.");
    dialog.click("cmdDone");
    EXPECT_TRUE(window.isVisible());
    EXPECT_EQ(desk.content().rows.size(), 1u);
    EXPECT_EQ(window.focusWidget(), &dialog.find("txtGuess"));
    // A name that uses itself is what an implicit equation is for.
    dialog.type("txtGuess", " 3 ");
    dialog.click("cmdDone");
    EXPECT_THAT(desk.equations(), ElementsAre("f(y) = y-2", "f(x) = x^2-y"));
    EXPECT_EQ(desk.content().rows[1].guess, "3");
    EXPECT_EQ(desk.grid().current_row(), 2);
}

TEST(EntryDialogs, AskForTheSignOnlyWhereTheMethodLooksAtIt)
{
    nle_desk desk;
    desk.person.click("cmdNewRoot");
    {
        QWidget& window = dialog_in_front("frmNleNE");
        const robot dialog(window);
        EXPECT_FALSE(dialog.is_shown("optConstrained_1"));
        EXPECT_THAT(faults_of(window), IsEmpty());
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
        EXPECT_THAT(faults_of(window), IsEmpty());
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

TEST(EntryDialogs, BeginWhereTypingGoesOnAndOfferTheNextUndefinedName)
{
    nle_desk desk;
    desk.grid().setFocus();
    desk.person.click("cmdNewRoot");
    dialog_in_front("frmNleNE");
    robot::keys("x\tx^2 - a - b\t1");
    robot::press(Qt::Key_Return);
    // Expression, Enter, expression, Enter.
    for (const char* expression : {"2*c", "3", "4"}) {
        dialog_in_front("frmNleEE");
        robot::keys(expression);
        robot::press(Qt::Key_Return);
    }
    desk.to_front();
    EXPECT_THAT(desk.equations(), ElementsAre("f(x) = x^2 - a - b", "a = 2*c", "b = 3", "c = 4"));

    desk.grid().setFocus();
    desk.grid().set_current_row(1);
    robot::press(Qt::Key_Return);
    EXPECT_EQ(dialog_in_front("frmNleNE").focusWidget()->objectName(), "txtEquation");
    robot::press(Qt::Key_Escape);
    desk.to_front();
    desk.double_click(1, 2);
    EXPECT_EQ(dialog_in_front("frmNleNE").focusWidget()->objectName(), "txtGuess");
    robot::keys("7");
    robot::press(Qt::Key_Return);
    EXPECT_EQ(desk.content().rows.front().guess, "7");
}

} // namespace kelvarin::test
