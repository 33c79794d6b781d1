// SPDX-License-Identifier: MIT
// Whole ways through the window of optimization problems, as a person takes them.

#include "opt_desk.h"

#include "desktop/expression_edit.h"
#include "desktop/link_label.h"
#include "support/table.h"
#include "support/window_walk.h"

#include <gmock/gmock.h>

#include <QPlainTextEdit>
#include <QTextBrowser>

namespace
{

using namespace kelvarin;
using kelvarin::test::dialog_in_front;
using kelvarin::test::opt_desk;
using kelvarin::test::robot;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

const std::string bowl_file = "Bowl\r\n(x-h)^2+1\r\nx(0) = 5 #from here\r\nh = 2 #\r\n";

TEST(OptimizationWindow, MakesAndSolvesAProblemFromNothingAndKeepsItInAFile)
{
    opt_desk desk;
    desk.type_target("(x-h)^2+1");
    desk.add("cmdNewStart", "x", "5", "from here");
    EXPECT_EQ(desk.third_panel(), "Undefined Variable: h");
    desk.add("cmdNewEquation", "h", "2");
    desk.set_title("Bowl");
    desk.person.choose("cmbMethod", "Quasi-Newton");
    frmSolution& report = desk.solve_by_key();
    EXPECT_THAT(report.windowTitle().toStdString(), HasSubstr("Optimization Solution #"));
    for (const char* part :
         {"Bowl 01-02-2026", "OPT Report (Quasi-Newton)", "\n x           5            2", "from here"})
        EXPECT_THAT(report.plain_text(), HasSubstr(part));
    desk.to_front();
    EXPECT_THAT(desk.person.text("lblCard"), testing::StartsWith("minimum: gradient "));
    desk.user.expect_file(chosen_file{desk.folder / "made.kvr", 1});
    robot::press(Qt::Key_S, Qt::ControlModifier);
    EXPECT_EQ(desk.folder.read("made.kvr"), bowl_file);
    EXPECT_TRUE(desk.open_again("made.kvr").document().problem_saved());
}

TEST(OptimizationWindow, ShowsItsStateInWordsAndHasNoFaultOfLayout)
{
    opt_desk desk;
    const auto faults = [&] { return test::faults_of(desk.window, desk.window.menus()); };
    EXPECT_THAT(faults(), IsEmpty());
    EXPECT_EQ(desk.missing(), "Enter the target function to begin.");
    desk.add("cmdNewStart", "x", "5");
    EXPECT_EQ(desk.missing(), "Enter the target function.");
    desk.type_target("x+");
    EXPECT_THAT(desk.missing(), HasSubstr("Target Function Error. Syntax Error: "));
    EXPECT_FALSE(desk.person.is_shown("cmdRun"));
    robot::keys("x^2");
    EXPECT_TRUE(desk.person.is_shown("cmdRun"));
    EXPECT_EQ(desk.person.text("lblTraffic"), "ready");
    EXPECT_EQ(desk.person.find<QPlainTextEdit>("txtTarget").toPlainText(), QStringLiteral("x+x^2"));
    EXPECT_THAT(faults(), IsEmpty());

    // What is typed into the field is one step, and its keys undo the problem.
    robot::press(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(desk.content().target, "");
    robot::press(Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_EQ(desk.content().target, "x+x^2");

    // Two definitions are no reason to be red, but are named.
    desk.user.expect_question("Problem not saved. Do you wish to save it now ?", user_answer::no);
    desk.open_text("Twice\nx\nx(0)=1\nx = 2\n");
    EXPECT_TRUE(desk.person.is_shown("cmdRun"));
    EXPECT_EQ(desk.third_panel(), "Variable defined more than once: x");
}

TEST(OptimizationWindow, RowsAreTypedInTheGridThroughTheSameChecks)
{
    opt_desk desk;
    desk.type_target("(x-h)^2+k");
    const auto& target = desk.person.find<expression_edit>("txtTarget");
    const auto underlined = [&] {
        std::string names;
        for (const QTextEdit::ExtraSelection& mark : target.extraSelections())
            names += mark.cursor.selectedText().toStdString() + " ";
        return names;
    };
    EXPECT_EQ(underlined(), "x h k ");
    robot::press(Qt::Key_Tab);
    robot::keys("x(0) = one");
    desk.user.expect_box("<one> is not a valid number.");
    robot::press(Qt::Key_Return);
    robot::keys("5");
    robot::press(Qt::Key_Return);
    EXPECT_THAT(desk.equations(), ElementsAre("x(0) = 5"));
    EXPECT_EQ(underlined(), "h k ");
    // The next name that is missing is proposed.
    robot::keys("2*");
    desk.user.expect_box("Syntax Error: extra operator at the end of the expression; *");
    robot::press(Qt::Key_Return);
    robot::keys("3");
    robot::press(Qt::Key_Return);
    robot::keys("1");
    robot::press(Qt::Key_Return);
    EXPECT_THAT(desk.equations(), ElementsAre("x(0) = 5", "h = 23", "k = 1"));
    EXPECT_EQ(underlined(), "");
    robot::keys("h = 4");
    desk.user.expect_box("The variable <h> has been already defined in equation 2.");
    robot::press(Qt::Key_Return);
    robot::press(Qt::Key_Escape);
    desk.grid().set_current_row(2);
    robot::press(Qt::Key_F2);
    robot::press(Qt::Key_A, Qt::ControlModifier);
    robot::keys("h = 2");
    EXPECT_TRUE(desk.person.is_shown("cmdRun")) << "what is typed does not count before it is taken over";
    robot::press(Qt::Key_Return);
    EXPECT_THAT(desk.equations(), ElementsAre("x(0) = 5", "h = 2", "k = 1"));
    for (int step = 0; step < 4; ++step)
        robot::press(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_THAT(desk.equations(), IsEmpty());
}

TEST(OptimizationWindow, RowsAreCheckedInTheirDialogAndChangeTheirForm)
{
    opt_desk desk;
    desk.open_text("Rows\nx+a\nx(0)=1 #c\na = 2\n");
    const robot dialog = [&] {
        desk.grid().set_current_row(1);
        desk.person.click("cmdEdit");
        return robot(dialog_in_front("frmOptRow"));
    }();
    EXPECT_EQ(dialog.text("txtVar"), "x");
    EXPECT_EQ(dialog.text("txtComment"), "c");
    dialog.type("txtEquation", "one");
    desk.user.expect_box("<one> is not a valid number.");
    dialog.click("cmdDone");
    dialog.type("txtVar", "a");
    desk.user.expect_box("The variable <a> has been already defined in equation 2.");
    dialog.click("cmdDone");
    dialog.type("txtVar", "x");
    dialog.type("txtEquation", "2*a");
    dialog.click("chkVaried");
    dialog.click("cmdDone");
    EXPECT_THAT(desk.equations(), ElementsAre("x = 2*a", "a = 2"));
    EXPECT_EQ(desk.content().rows[0].comment, "c");
}

TEST(OptimizationWindow, ExamplesTraceAndFailuresOfARun)
{
    opt_desk desk;
    desk.choose("Examples", "mnuSample2");
    EXPECT_EQ(desk.content().title, "Sample problem 2");
    EXPECT_FALSE(robot::item_of(desk.menu("Solution"), "mnuTrace")->isEnabled());
    desk.solve_by_key();
    desk.to_front();
    EXPECT_THAT(desk.person.text("lblCard"), testing::StartsWith("unbounded: "));
    desk.choose("Solution", "mnuTrace");
    EXPECT_THAT(dialog_in_front("frmMsg").findChild<QTextBrowser*>()->toPlainText().toStdString(),
                HasSubstr("1      1          "));
    robot::press(Qt::Key_Escape);
    desk.to_front();

    desk.open_text("Edge\ny^2-ln(x)\ny(0)=1\nx(0)=1\n");
    EXPECT_FALSE(desk.person.is_shown("lblCard"));
    desk.user.expect_box("Error: ln() of negative number not allowed.\rln(x)", "Expression evaluation error");
    desk.run_by_mouse();
    EXPECT_THAT(desk.person.text("lblCard"), HasSubstr("at x = 1 with a step of -5 the target has no value"));
    desk.type_target("y^2-x");
    EXPECT_FALSE(desk.person.is_shown("lblCard")) << "what was said holds for the problem as it was";
}

TEST(OptimizationWindow, MarksWhereARunFailed)
{
    const test::table<const char*, const char*, std::vector<std::string>, const char*> cases = {
        {"Row\nx+v\nx(0)=2\nd = x - x\nv = 1 + 44.1 / d\n",
         "Error: Zero denominator not allowed.\r44.1 / d",
         {"44.1 / d"},
         ""},
        {"Target\nx + 44.1 / d\nx(0)=2\nd = x - x\n", "Error: Zero denominator not allowed.\r44.1 / d", {}, "44.1 / d"},
        {"Step\ny^2-ln(x)\ny(0)=1\nx(0)=1\n", "Error: ln() of negative number not allowed.\rln(x)", {}, "ln(x)"},
        {"Circle\nx\nx(0)=1\na = b\nb = a\nc = 2\n",
         "Circular definition of explicit variables not allowed.",
         {"a", "b"},
         ""}};
    for (const auto& [file, text, marked, selected] : cases) {
        SCOPED_TRACE(file);
        opt_desk desk;
        ASSERT_NO_FATAL_FAILURE(desk.open_text(file));
        const std::string title = marked.size() == 2 ? "Kelvarin Guide" : "Expression evaluation error";
        desk.user.expect_box(text, title);
        desk.run_by_mouse();
        EXPECT_EQ(desk.marked_texts(), marked);
        const auto& target = desk.person.find<QPlainTextEdit>("txtTarget");
        EXPECT_EQ(target.textCursor().selectedText().toStdString(), selected);
        EXPECT_EQ(target.hasFocus(), *selected != '\0');
    }
}

TEST(OptimizationWindow, GoesOnFromTheEndPointOfARun)
{
    opt_desk desk;
    ASSERT_NO_FATAL_FAILURE(desk.open_text(bowl_file));
    EXPECT_FALSE(robot::item_of(desk.menu("Solution"), "mnuUseSolution")->isEnabled());
    const frmSolution& report = desk.solve_by_key();
    desk.to_front();
    const auto start = [&] { return desk.content().rows[0].equation; };
    desk.choose("Solution", "mnuUseSolution");
    EXPECT_NEAR(std::stod(start().substr(start().find('=') + 1)), 2.0, 1e-6);
    EXPECT_EQ(desk.content().rows[1].equation, "h = 2");
    desk.window.perform(window_command::undo);
    EXPECT_EQ(start(), "x(0) = 5");
    QMenu& menu = *const_cast<frmSolution&>(report).menus().front();
    robot::item_of(menu, "mnuUseSolution")->trigger();
    EXPECT_NE(start(), "x(0) = 5");
    EXPECT_EQ(desk.window.document().undo_step(), "Use solution as guesses");

    // A solution is one of the problem that was solved.
    desk.user.expect_question("Previous problem was not saved. Do you wish to save it now ?", user_answer::no);
    desk.choose("Examples", "mnuSample1");
    EXPECT_FALSE(robot::item_of(desk.menu("Solution"), "mnuUseSolution")->isEnabled());
}

TEST(OptimizationWindow, ShowsTheTargetOfOneOrTwoVariables)
{
    opt_desk desk;
    const auto item = [&] { return robot::item_of(desk.menu("Solution"), "mnuTarget"); };
    const auto solve = [&](const char* text) {
        desk.open_text(text);
        EXPECT_FALSE(item()->isEnabled());
        desk.solve_by_key();
        desk.to_front();
    };
    solve(bowl_file.c_str());
    const std::size_t windows = desk.frame.children().size();
    desk.choose("Solution", "mnuTarget");
    EXPECT_EQ(desk.frame.children().size(), windows + 1);
    desk.to_front();

    solve("Two\n(x-1)^2+(y-2)^2\nx(0)=4\ny(0)=0\n");
    desk.choose("Solution", "mnuTarget");
    QWidget& map = dialog_in_front("frmTarget");
    EXPECT_THAT(map.windowTitle().toStdString(), HasSubstr("Two"));
    EXPECT_THAT(test::faults_of(map, {}), IsEmpty());
    const robot in_map(map);
    desk.user.expect_file(chosen_file{desk.folder / "two.svg", 1});
    in_map.click("cmdSave");
    EXPECT_THAT(desk.folder.read("two.svg"), HasSubstr("iterations"));
    // A name that tells no format takes that of the filter.
    desk.user.expect_file(chosen_file{desk.folder / "two.pic", 3});
    in_map.click("cmdSave");
    EXPECT_THAT(desk.folder.read("two.pic"), testing::StartsWith("\x89PNG"));
    desk.user.expect_print(desk.folder / "two.pdf");
    in_map.click("cmdPrint");
    EXPECT_THAT(desk.folder.read("two.pdf"), testing::StartsWith("%PDF"));
    in_map.click("cmdCopy");
    EXPECT_TRUE(desk.user.clipboard()->hasImage());
    robot::press(Qt::Key_Escape);
    desk.to_front();

    solve("Three\nx^2+y^2+z^2\nx(0)=4\ny(0)=1\nz(0)=1\n");
    EXPECT_FALSE(item()->isEnabled());
}

TEST(OptimizationWindow, OpensItsFilesAndRecentFilesItself)
{
    opt_desk desk;
    const auto open = [&](const std::filesystem::path& file) {
        desk.user.expect_file(chosen_file{file, 1});
        desk.choose("File", "mnuOpen");
    };
    open(desk.folder.write("bowl.kvr", bowl_file));
    EXPECT_EQ(desk.content().title, "Bowl");
    EXPECT_EQ(desk.window.document().printed_listing(),
              "Kelvarin OPT Program\nFile: bowl.kvr\n\nTrget Function:\n(x-h)^2+1\n\n[1] x(0) = 5\n    from here\n"
              "[2] h = 2\n");
    open(desk.folder.write("other.kvr", "Other\nx\nx(0)=1\n"));
    desk.choose("File", "mnuFileItem_2");
    EXPECT_EQ(desk.content().title, "Bowl");
    EXPECT_THAT(desk.frame.opened(), IsEmpty());
    desk.user.expect_box("Error while trying to open file (The file is empty.)");
    open(desk.folder.write("empty.kvr", ""));
}

} // namespace
