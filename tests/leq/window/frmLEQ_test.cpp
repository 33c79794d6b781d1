// SPDX-License-Identifier: MIT
// Whole ways through the window of linear equations, as a person takes them.

#include "leq_desk.h"
#include "support/window_walk.h"

#include <gmock/gmock.h>

namespace
{

using namespace kelvarin;
using kelvarin::test::leq_desk;
using kelvarin::test::robot;
using kelvarin::test::three_equations_block;
using testing::HasSubstr;

// A common textbook example; by substitution its solution is 2, 3, -1.
const std::string textbook_file = "Textbook\r\n"
                                  "2\r\n"
                                  "varsnames==x1,y,x3\r\n"
                                  "2\t1\t-1\t\r\n"
                                  "-3\t-1\t2\t\r\n"
                                  "-2\t1\t2\t\r\n"
                                  "8\t-11\t-3\t\r\r\n";

void expect_textbook_report(const frmSolution& solution)
{
    const std::string report = solution.plain_text();
    for (const char* line : {"Textbook", "[1] x1 =  2 ", "[2] y =  3 ", "[3] x3 = -1 ",
                             "[2] -3*x1 - 1*y + 2*x3 = -11\n", " Number of equations : 3\n"})
        EXPECT_THAT(report, HasSubstr(line));
}

TEST(LinearWindow, MakesSolvesAndKeepsAProblemByKeysAlone)
{
    leq_desk desk;
    // Tab goes along a row and on to the next; behind the last cell it leads to the button, where Enter solves.
    leq_desk::keys("2\t1\t-1\t8\t-3\t-1\t2\t-11\t-2\t1\t2\t-3\t");
    desk.set_title("Textbook");
    desk.grid().set_current_cell(1, 1);
    desk.user.expect_input("Enter variable name.", "y");
    desk.choose("Edit", "mnuRename");
    const frmSolution& report = desk.report_of([] { robot::press(Qt::Key_Return); });
    expect_textbook_report(report);
    EXPECT_THAT(report.windowTitle().toStdString(), HasSubstr("Linear Equations Solution #"));

    desk.to_front();
    desk.user.expect_file(chosen_file{desk.folder / "made.kvr", 1});
    robot::press(Qt::Key_S, Qt::ControlModifier);
    robot::press(Qt::Key_W, Qt::ControlModifier);
    EXPECT_EQ(desk.frame.children().size(), 1u) << "the window stays open";
    EXPECT_EQ(desk.folder.read("made.kvr"), textbook_file);

    EXPECT_TRUE(desk.open_again("made.kvr").document().problem_saved());
    const frmSolution& again = desk.solve_by_key();
    expect_textbook_report(again);
    EXPECT_THAT(again.plain_text(), HasSubstr("made.kvr"));
}

TEST(LinearWindow, NamesWhatKeepsAProblemFromBeingSolvedAndGoesThere)
{
    leq_desk desk;
    desk.paste_at(1, 1, "1\t0\t0\t1\n0\t1\t0\t2\n0\t0\t1\t");
    desk.user.expect_box("The coefficients matrix contains one or more empty cells (3,4)");
    desk.person.click("cmdRun");
    EXPECT_EQ(desk.grid().currentIndex(), desk.grid().model()->index(2, 3));
    EXPECT_TRUE(desk.grid().hasFocus());
    EXPECT_EQ(desk.frame.children().size(), 1u);
}

TEST(LinearWindow, CountsTheSolutionsOfAllWindowsThroughRefusalsAndSingularMatrices)
{
    leq_desk desk;
    desk.person.choose("cmbNumEq", "2");
    desk.paste_at(1, 1, "1\t2\t3\n4\t5\t6");
    const int first = test::number_of(desk.report_of([&] { desk.choose("Program", "solve"); }));
    EXPECT_GT(first, 0);

    desk.to_front();
    desk.click_cell(2, 1);
    leq_desk::keys("2\t4\n");
    desk.user.expect_box("Error, Singular Matrix enetered !");
    robot::press(Qt::Key_F5);
    EXPECT_EQ(desk.frame.children().size(), 2u);

    desk.click_cell(2, 1);
    robot::press(Qt::Key_Delete);
    desk.user.expect_box("The coefficients matrix contains one or more empty cells (2,1)");
    robot::press(Qt::Key_F5);

    leq_desk::keys("1\n");
    EXPECT_EQ(test::number_of(desk.solve_by_key()), first + 2);
}

TEST(LinearWindow, TakesOverWhatIsBeingTypedBeforeItSolvesSavesOrCloses)
{
    leq_desk desk;
    desk.person.choose("cmbNumEq", "2");
    desk.paste_at(1, 1, "1\t0\t1\n0\t1\t1");
    desk.click_cell(1, 3);
    // Read as far as it goes it would be a 1.
    leq_desk::keys("1E-");
    desk.user.expect_box("The coefficients matrix contains a cell that is not a number (1,3): '1E-'");
    robot::press(Qt::Key_F5);

    leq_desk::keys("7");
    desk.user.expect_file(chosen_file{desk.folder / "typed.kvr", 1});
    robot::press(Qt::Key_S, Qt::ControlModifier);
    EXPECT_THAT(desk.folder.read("typed.kvr"), HasSubstr("7\t1\t\r\r\n"));

    leq_desk::keys("8");
    desk.user.expect_question("LEQ Problem not saved. Do you want to save it before closing ?", user_answer::yes);
    EXPECT_TRUE(desk.window.close_with_frame());
    EXPECT_THAT(desk.folder.read("typed.kvr"), HasSubstr("8\t1\t\r\r\n"));
}

TEST(LinearWindow, GoesWhileACellIsBeingTypedIn)
{
    leq_desk desk;
    leq_desk::keys("5");
    ASSERT_TRUE(desk.person.is_shown("txtCell"));
    delete &desk.window;
    EXPECT_TRUE(desk.frame.children().empty());
}

TEST(LinearWindow, HasNoFaultOfLayoutAndSpeaksItsCells)
{
    leq_desk desk;
    const auto faults = [&] { return test::faults_of(desk.window, desk.window.menus()); };
    EXPECT_THAT(faults(), testing::IsEmpty());
    EXPECT_EQ(desk.person.text("lblEmpty"), "12 empty cells");

    desk.paste_at(1, 1, three_equations_block);
    desk.click_cell(2, 3);
    EXPECT_EQ(desk.person.text("lblEmpty"), "");
    EXPECT_EQ(desk.person.text("lblCell"), "[2] -3*x1 - 1*x2 + 2*x3 = -11");
    const QModelIndex cell = desk.grid().currentIndex();
    EXPECT_EQ(cell.data(Qt::AccessibleTextRole).toString(), "row 2, column x3: 2");
    EXPECT_EQ(cell.data(Qt::TextAlignmentRole).toInt() & Qt::AlignRight, Qt::AlignRight);

    // Shown as typed, and told what is wrong with it.
    leq_desk::keys("2,50");
    EXPECT_THAT(faults(), testing::IsEmpty()) << "while a cell is being typed in";
    robot::press(Qt::Key_Up);
    desk.click_cell(2, 3);
    EXPECT_EQ(cell.data().toString(), "2,50");
    const std::string fault = "'2,50' is not a number. Decimals stand behind a point: 2.50";
    EXPECT_EQ(desk.person.text("lblCell"), fault);
    EXPECT_EQ(cell.data(Qt::ToolTipRole).toString().toStdString(), fault);
    EXPECT_EQ(cell.data(Qt::AccessibleDescriptionRole).toString().toStdString(), fault);

    desk.person.choose("cmbNumEq", "64");
    EXPECT_THAT(faults(), testing::IsEmpty());
}

} // namespace
