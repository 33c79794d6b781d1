// SPDX-License-Identifier: MIT
// Whole ways through the window of differential equations, as a person takes them.

#include "batch/run_batch.h"
#include "deq_desk.h"
#include "graph/window/frmGraph.h"
#include "support/table.h"
#include "support/window_walk.h"

#include <gmock/gmock.h>

#include <QElapsedTimer>
#include <QLocale>

#include <clocale>
#include <cmath>
#include <sstream>

namespace
{

using namespace kelvarin;
using kelvarin::test::deq_desk;
using kelvarin::test::dialog_in_front;
using kelvarin::test::robot;
using kelvarin::test::wait_until;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

// y' = -2 y from 1 falls to exp(-2) = 0.1353353.
const std::vector<test::typed_equation> decay = {{"y", "-k*y", "1", "falls"}, {"k", "2", "", "rate"}};

const std::string decay_file = "Decay |KVRVER05_1\r\n"
                               "d(y)/d(t) = -k*y #falls\r\n"
                               "k = 2 #rate\r\n"
                               "t(0)=0\r\n"
                               "y(0)=1\r\n"
                               "t(f)=1\r\n";

/// An explicit method needs steps of a third of a microsecond for ten seconds.
const char* const slow_problem = "Slow |KVRVER05_0\nd(y)/d(t) = -10000000*(y-cos(t)) #\nt(0)=0\ny(0)=0\nt(f)=10\n";

void expect_decay(const std::string& report)
{
    for (const char* part :
         {"Decay\n", "ODE Report (RKF56)", "\n y           1              0.1353353", "falls", "rate"})
        EXPECT_THAT(report, HasSubstr(part));
}

void type_by_mouse(deq_desk& desk)
{
    desk.range_by_mouse("t", "0", "1");
    for (const auto& equation : decay)
        desk.add_by_mouse(equation);
    desk.set_title("Decay");
    desk.person.choose("cmbMethod", "RKF56");
    expect_decay(desk.solve_by_mouse().plain_text());
    desk.to_front();
    desk.user.expect_file(chosen_file{desk.folder / "made.kvr", 1});
    desk.choose("File", "save");
    EXPECT_TRUE(desk.window.close_with_frame());
}

void type_by_keys(deq_desk& desk)
{
    for (const auto& equation : decay)
        desk.add_by_keys(equation, Qt::Key_D);
    robot::press(Qt::Key_I, Qt::AltModifier);
    robot::keys("t");
    robot::press(Qt::Key_Tab);
    robot::keys("0");
    robot::press(Qt::Key_O, Qt::AltModifier);
    robot::keys("1");
    desk.set_title("Decay");
    robot::press(Qt::Key_M, Qt::AltModifier);
    robot::press(Qt::Key_Down);
    expect_decay(desk.solve_by_key().plain_text());
    desk.to_front();
    desk.user.expect_file(chosen_file{desk.folder / "made.kvr", 1});
    robot::press(Qt::Key_S, Qt::ControlModifier);
    robot::press(Qt::Key_W, Qt::ControlModifier);
}

TEST(DifferentialWindow, MakesAndSolvesAProblemFromNothingWithMouseAndKeysAndInAnyLocale)
{
    const QLocale locale_before;
    for (const auto& [locale, type] : test::table<const char*, void (*)(deq_desk&)>{
             {"C", type_by_mouse}, {"C", type_by_keys}, {"de_DE.UTF-8", type_by_keys}}) {
        SCOPED_TRACE(locale);
        // Where the C library does not know the locale, the toolkit still does.
        static_cast<void>(std::setlocale(LC_ALL, locale));
        QLocale::setDefault(QLocale(QString::fromLatin1(locale)));
        deq_desk desk;
        type(desk);
        EXPECT_TRUE(wait_until([&] { return desk.frame.children().size() == 1; })) << "the window stays open";
        EXPECT_EQ(desk.folder.read("made.kvr"), decay_file);

        frmDEQ& reopened = desk.open_again("made.kvr");
        EXPECT_TRUE(reopened.document().problem_saved());
        expect_decay(desk.report_of([&] { robot(reopened).click("cmdRun"); }).plain_text());
    }
    std::setlocale(LC_ALL, "C");
    QLocale::setDefault(locale_before);
}

TEST(DifferentialWindow, ShowsItsStateInWordsAndHasNoFaultOfLayout)
{
    deq_desk desk;
    const auto faults = [&] { return test::faults_of(desk.window, desk.window.menus()); };
    EXPECT_THAT(faults(), IsEmpty());
    EXPECT_EQ(desk.person.text("lblTraffic"), "not ready");
    EXPECT_FALSE(desk.person.is_shown("cmdRun"));
    EXPECT_FALSE(desk.person.is_shown("lblAbort"));

    desk.add_by_mouse({"y", "-k*y", "1"});
    EXPECT_EQ(desk.third_panel(), "Undefined Variable: k");
    desk.add_by_mouse({"k", "2"});
    EXPECT_EQ(desk.third_panel(), "Warning: Initial integration value is empty or is not numeric");
    EXPECT_EQ(desk.cell(1, 1), "d(y)/d() = -k*y");
    EXPECT_THAT(faults(), IsEmpty());
    desk.range_by_mouse("t", "0", "0.0");
    EXPECT_EQ(desk.cell(1, 1), "d(y)/d(t) = -k*y");
    EXPECT_EQ(desk.third_panel(),
              "Warning: Final value of the integration variable must be greater than the initial value");
    desk.person.type("txtFinalVal", "1");
    EXPECT_EQ(desk.third_panel(), "");
    EXPECT_TRUE(desk.person.is_shown("cmdRun"));
    EXPECT_EQ(desk.person.text("lblTraffic"), "ready");
    EXPECT_THAT(faults(), IsEmpty());

    // What is typed into a field is one step.
    desk.window.perform(window_command::undo);
    EXPECT_EQ(desk.person.text("txtFinalVal"), "");
    EXPECT_EQ(desk.person.text("txtIndVar"), "t");
}

TEST(DifferentialWindow, RefusesANameThatStaysThatOfAnotherVariable)
{
    const std::string of_differential =
        "Please do not use the same valriable name for independent variable and differential variable.";
    const std::string of_explicit =
        "Please do not use the same valriable name for independent variable and explicit variable.";
    deq_desk desk;
    ASSERT_NO_FATAL_FAILURE(desk.open_text(decay_file));
    // On its way to `yz` the name is `y` for a moment.
    desk.person.type("txtIndVar", "yz");
    EXPECT_EQ(desk.cell(1, 1), "d(y)/d(yz) = -k*y");
    EXPECT_THAT(desk.user.boxes(), IsEmpty());

    desk.user.expect_box(of_differential);
    desk.person.type("txtIndVar", "y");
    EXPECT_TRUE(wait_until([&] { return desk.person.text("txtIndVar") == "yz"; }, 5000)) << "when typing pauses";
    EXPECT_EQ(desk.content().independent, "yz");
    EXPECT_EQ(desk.user.boxes().size(), 1u);

    desk.user.expect_box(of_explicit);
    desk.person.type("txtIndVar", "k");
    robot::press(Qt::Key_Tab);
    EXPECT_EQ(desk.person.text("txtIndVar"), "yz") << "when the field is left";
    EXPECT_EQ(desk.user.boxes().size(), 2u);

    // And before a run.
    desk.user.expect_box(of_explicit);
    desk.person.type("txtIndVar", "k");
    desk.solve_by_key();
    EXPECT_EQ(desk.person.text("txtIndVar"), "yz");
    EXPECT_TRUE(desk.user.is_done());
}

TEST(DifferentialWindow, GivesTheReportOfTheBatchProgramByteForByte)
{
    deq_desk desk;
    ASSERT_NO_FATAL_FAILURE(desk.open_text(decay_file));
    for (const std::string method : {"RKF45", "RKF56", "BS", "STIFF", "STIFFBS"}) {
        SCOPED_TRACE(method);
        desk.to_front();
        desk.person.choose("cmbMethod", method);
        frmSolution& solution = desk.solve_by_mouse();
        EXPECT_TRUE(solution.windowTitle().startsWith(QStringLiteral("Differential Equations Solution #")));
        recording_listener listener;
        std::ostringstream out, err;
        const std::vector<std::string> arguments = {
            "--format", "rtf", "--method", method, "-o", "batch.rtf", (desk.folder / "problem.kvr").string()};
        EXPECT_EQ(run_batch(arguments, out, err, {desk.clock, desk.registry, listener}), 0) << err.str();
        // But for the time that each took.
        const auto timeless = [](std::string report) {
            const auto at = report.find("Elapsed time: ");
            return report.erase(at, report.find(" sec", at) - at);
        };
        EXPECT_EQ(timeless(solution.rich_text()), timeless(desk.folder.read("batch.rtf")));
    }
}

TEST(DifferentialWindow, ReportsOnlyWhatIsAskedFor)
{
    deq_desk desk;
    ASSERT_NO_FATAL_FAILURE(desk.open_text(decay_file));
    const int first = test::number_of(desk.solve_by_mouse());
    desk.to_front();
    desk.person.click("chkReport");
    desk.run_by_mouse();
    EXPECT_EQ(desk.frame.children().size(), 2u);
    EXPECT_THAT(desk.person.text("lblCard"), HasSubstr(" evaluations, step length "));
    desk.person.click("chkGraph");
    desk.run_by_mouse();
    ASSERT_TRUE(wait_until([&] { return desk.frame.children().size() == 3; }));
    EXPECT_EQ(dynamic_cast<frmGraph&>(*desk.frame.children().back()).document().content().caption,
              "ODE Results Graph, Solution #" + std::to_string(first + 2));
    desk.to_front();
    desk.person.click("chkGraph");
    desk.person.click("chkReport");
    desk.person.click("chkComments");
    frmSolution& without = desk.solve_by_mouse();
    EXPECT_EQ(test::number_of(without), first + 3) << "every run counts";
    EXPECT_THAT(without.plain_text(), testing::Not(HasSubstr("falls")));
}

TEST(DifferentialWindow, AGraphComparesWithTheLastRun)
{
    deq_desk desk;
    ASSERT_NO_FATAL_FAILURE(desk.open_text(decay_file));
    desk.person.click("chkReport");
    desk.run_by_mouse();
    desk.window.findChild<QAction*>("mnuCompareLast")->trigger();
    desk.person.type("txtFinalVal", "2");
    desk.run_by_mouse();
    ASSERT_TRUE(wait_until([&] { return desk.frame.children().size() == 2; }));
    auto& window = dynamic_cast<frmGraph&>(*desk.frame.children().back());
    const graph_content& graph = window.document().content();
    ASSERT_EQ(graph.columns.back().name, "y (last)");
    EXPECT_TRUE(graph.curve_visible.back());
    const shared_values& x = graph.columns.front().values;
    const shared_values& last = graph.columns.back().values;
    for (std::size_t i = 0; i < graph.point_count(); ++i) {
        const bool is_new = !std::isnan(graph.columns[1].values[i]);
        EXPECT_NE(is_new, !std::isnan(last[i])) << "a point belongs to one run";
        if (is_new) continue;
        EXPECT_NEAR(last[i], std::exp(-2.0 * x[i]), 1e-5);
    }
    const auto style_of = [&](int curve) {
        return window.findChild<graph_view*>("PicGraph")->style_of({drawn_role::curve, curve});
    };
    const int added = static_cast<int>(graph.curve_count()) - 1;
    EXPECT_EQ(style_of(added).colour, style_of(0).colour);
    EXPECT_TRUE(style_of(0).dashes.empty());
    EXPECT_FALSE(style_of(added).dashes.empty());

    desk.user.expect_question("Problem not saved. Do you wish to save it now ?", user_answer::no);
    ASSERT_TRUE(desk.window.open(desk.folder.write("other.kvr", decay_file)));
    desk.run_by_mouse();
    ASSERT_TRUE(wait_until([&] { return desk.frame.children().size() == 3; }));
    EXPECT_EQ(dynamic_cast<frmGraph&>(*desk.frame.children().back()).document().content().curve_count(), added)
        << "the solution of another problem is no earlier run";
}

TEST(DifferentialWindow, FailuresAreToldAndMarkTheirPlace)
{
    deq_desk desk;
    ASSERT_NO_FATAL_FAILURE(
        desk.open_text("Fault |KVRVER05_2\nd(y)/d(t) = a #\na = b+3x #\nb = 1 #\nt(0)=0\ny(0)=1\nt(f)=1\n"));
    desk.user.expect_box("Explicit expression # 2\rSyntax Error: invalid number '3x'");
    desk.run_by_mouse();
    EXPECT_EQ(desk.grid().current_row(), 2);
}

TEST(DifferentialWindow, AnInitialValueThatIsNoNumberIsMarked)
{
    deq_desk desk;
    ASSERT_NO_FATAL_FAILURE(desk.open_text("M |KVRVER05_0\nd(y)/d(t) = -y #\nd(z)/d(t) = -z #\nd(w)/d(t) = -w #\n"
                                           "t(0)=0\ny(0)=2x\nw(0)=3\nt(f)=1\n"));
    const auto shown = [&](int row, int role) {
        return desk.grid().model()->index(row - 1, 1).data(role).toString().toStdString();
    };
    for (const auto& [row, text, edited, marked] : test::table<int, const char*, const char*, bool>{
             {1, "2x", "2x", true}, {2, "?", "", true}, {3, "3", "3", false}}) {
        SCOPED_TRACE(row);
        EXPECT_EQ(shown(row, Qt::DisplayRole), text);
        EXPECT_EQ(shown(row, Qt::EditRole), edited);
        EXPECT_EQ(shown(row, Qt::AccessibleDescriptionRole).starts_with("not a number"), marked);
    }
    desk.person.click("chkReport");
    desk.run_by_mouse();
    EXPECT_THAT(desk.person.text("lblCard"), HasSubstr("Row 2 has no number as its initial value"));
}

/// Starts the slow problem and waits until it is under way.
void start_slow_run(deq_desk& desk)
{
    robot::press(Qt::Key_F5);
    ASSERT_TRUE(desk.window.is_running());
    ASSERT_TRUE(wait_until([&] { return desk.window.fraction_done() > 0.0; }));
}

TEST(DifferentialRuns, StopByCtrlCAndOfferTheStiffMethod)
{
    const std::string offer = "Would you like to solve this problem using the Stiff method ?";
    deq_desk desk;
    ASSERT_NO_FATAL_FAILURE(desk.open_text(slow_problem));
    ASSERT_NO_FATAL_FAILURE(start_slow_run(desk));
    EXPECT_TRUE(desk.person.is_shown("lblAbort"));
    for (const char* control :
         {"cmdRun", "cmdNewDiffEq", "cmdNewEquation", "cmbMethod", "txtIndVar", "txtInitVal", "txtFinalVal"})
        EXPECT_FALSE(desk.person.is_enabled(control)) << control;
    desk.user.expect_box("Calculations aborted.");
    desk.user.expect_question(offer, user_answer::no);
    robot::press(Qt::Key_C, Qt::ControlModifier);
    ASSERT_TRUE(wait_until([&] { return !desk.window.is_running() && desk.user.is_done(); }, 60000));
    EXPECT_EQ(desk.user.questions().back().default_answer, user_answer::no);
    EXPECT_EQ(desk.user.boxes().back().icon, box_icon::exclamation);
    EXPECT_EQ(desk.content().method, deq_method::rkf45);
    EXPECT_FALSE(desk.person.is_shown("lblAbort"));
    EXPECT_EQ(desk.frame.children().size(), 1u);

    // Yes starts it again at once, and it ends.
    ASSERT_NO_FATAL_FAILURE(start_slow_run(desk));
    desk.user.expect_box("Calculations aborted.");
    desk.user.expect_question(offer, user_answer::yes);
    const frmSolution& solution = desk.report_of([] { robot::press(Qt::Key_Escape); });
    EXPECT_EQ(desk.content().method, deq_method::stiff);
    EXPECT_EQ(desk.person.text("cmbMethod"), "STIFF");
    EXPECT_THAT(solution.plain_text(), HasSubstr("ODE Report (STIFF)"));
    EXPECT_TRUE(desk.user.is_done());
}

TEST(DifferentialRuns, OfferTheStiffMethodWhileTheyLast)
{
    deq_desk desk;
    ASSERT_NO_FATAL_FAILURE(desk.open_text(slow_problem));
    EXPECT_FALSE(desk.person.is_shown("cmdStiff"));
    ASSERT_NO_FATAL_FAILURE(start_slow_run(desk));
    ASSERT_TRUE(wait_until([&] { return desk.person.is_shown("cmdStiff"); }, 60000));
    EXPECT_THAT(test::faults_of(desk.window, desk.window.menus()), IsEmpty());
    // It stands for the boxes of an abort.
    const frmSolution& solution = desk.report_of([&] { desk.person.click("cmdStiff"); });
    EXPECT_THAT(solution.plain_text(), HasSubstr("ODE Report (STIFF)"));
    EXPECT_THAT(desk.user.boxes(), IsEmpty());
    EXPECT_THAT(desk.user.questions(), IsEmpty());
    EXPECT_FALSE(desk.person.is_shown("cmdStiff"));
}

TEST(DifferentialRuns, AreStoppedWithoutAWordWhenTheWindowCloses)
{
    deq_desk desk;
    ASSERT_NO_FATAL_FAILURE(desk.open_text(slow_problem));
    ASSERT_NO_FATAL_FAILURE(start_slow_run(desk));
    desk.window.close_with_frame();
    EXPECT_TRUE(wait_until([&] { return desk.frame.children().empty(); }, 60000));
    EXPECT_THAT(desk.user.boxes(), IsEmpty());
    EXPECT_THAT(desk.user.questions(), IsEmpty());
}

TEST(DifferentialRuns, LeaveTheirPointsAndCheckTheirAccuracy)
{
    deq_desk desk;
    ASSERT_NO_FATAL_FAILURE(desk.open_text(slow_problem));
    EXPECT_FALSE(desk.person.is_shown("cmdCopyPoints"));
    ASSERT_NO_FATAL_FAILURE(start_slow_run(desk));
    desk.user.expect_box("Calculations aborted.");
    desk.user.expect_question("Would you like to solve this problem using the Stiff method ?", user_answer::no);
    robot::press(Qt::Key_Escape);
    ASSERT_TRUE(wait_until([&] { return !desk.window.is_running() && desk.user.is_done(); }, 60000));
    EXPECT_THAT(desk.person.text("lblCard"), testing::StartsWith("Stopped at t = "));
    desk.person.click("cmdCopyPoints");
    EXPECT_THAT(desk.user.copied_text().toStdString(), testing::StartsWith("t\ty\n0\t0\n"));

    ASSERT_NO_FATAL_FAILURE(desk.open_text(decay_file));
    EXPECT_FALSE(desk.person.is_shown("lblCard")) << "it is about another problem";
    desk.choose("Solution", "mnuCheckAccuracy");
    QWidget& shown = test::top_window("frmMsg");
    EXPECT_THAT(robot(shown).text("txtMsg"), HasSubstr("RKF56 at a tenth of the tolerance, by RKF45"));
}

TEST(DifferentialDialogs, ShowARefusalInItsFieldAndStayOpen)
{
    // Each row has all the faults of the rows below it, so that the order shows; then where the caret is.
    const test::table<test::typed_equation, std::string, const char*> rows = {
        {{"t", "y+", "one"}, "Syntax Error: extra operator at the end of the expression; +", "txtExpression"},
        {{"t", "y+1", "one"}, "Please enter a valid initial value.", "txtGuess"},
        {{" t ", "y+1", "1"}, "Differential var must be different than independet var.", "txtVar"},
        {{"k", "y+1", "1"}, "The variable 'k' has already been defined.", "txtVar"},
    };
    deq_desk desk;
    ASSERT_NO_FATAL_FAILURE(desk.open_text(decay_file));
    desk.person.click("cmdNewDiffEq");
    QWidget& window = dialog_in_front("frmDeqDE");
    const robot dialog(window);
    EXPECT_THAT(test::faults_of(window), IsEmpty());
    EXPECT_EQ(dialog.text("lblDT"), "d (t)");
    for (const auto& [typed, box, field] : rows) {
        SCOPED_TRACE(box);
        dialog.type("txtVar", typed.variable);
        dialog.type("txtExpression", typed.expression);
        dialog.type("txtGuess", typed.guess);
        desk.user.expect_box(box);
        dialog.click("cmdDone");
        EXPECT_TRUE(window.isVisible());
        EXPECT_EQ(window.focusWidget(), &dialog.find(field));
    }
    dialog.type("txtVar", " z ");
    EXPECT_EQ(dialog.text("lblGuess"), "z(0)");
    dialog.type("txtExpression", " t*y ");
    dialog.type("txtGuess", " 3e0 ");
    dialog.click("cmdDone");
    EXPECT_THAT(desk.equations(), ElementsAre("d(y)/d(t) = -k*y", "k = 2", "d(z)/d(t) = t*y"));
    EXPECT_EQ(desk.content().rows[2].guess, "3e0");
}

TEST(DifferentialDialogs, EditARow)
{
    deq_desk desk;
    ASSERT_NO_FATAL_FAILURE(desk.open_text(decay_file));
    desk.person.click("cmdEdit");
    {
        const robot dialog(dialog_in_front("frmDeqDE"));
        EXPECT_EQ(dialog.text("txtExpression"), "-k*y");
        EXPECT_EQ(dialog.text("txtComments"), "falls");
        dialog.type("txtGuess", "4");
        dialog.click("cmdDone");
    }
    EXPECT_EQ(desk.cell(1, 2), "4");
    desk.to_front();
    desk.grid().set_current_row(2);
    desk.person.click("cmdEdit");
    QWidget& window = dialog_in_front("frmDeqEE");
    EXPECT_THAT(test::faults_of(window), IsEmpty());
    const robot dialog(window);
    dialog.type("txtExplicit", "k+1");
    desk.user.expect_box(
        "Circular definition of 'k'\rThe explicit varible being defined can not appear on the left hand "
        "side of the equation.");
    dialog.click("cmdDone");
}

} // namespace
