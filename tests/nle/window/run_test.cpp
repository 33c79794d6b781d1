// SPDX-License-Identifier: MIT
#include "graph/window/frmGraph.h"
#include "nle_desk.h"

#include <gmock/gmock.h>

#include <QElapsedTimer>
#include <QTimer>

namespace
{

using namespace kelvarin;
using kelvarin::test::nle_desk;
using kelvarin::test::robot;
using kelvarin::test::wait_until;

/// Each evaluation sums ten million terms, and the scan takes 167 of them.
const char* const slow_problem = "Slow |KVRVER05_0\nf(x) = psi(9999000+int(x))-x #\nx(min)=1, x(max)=900\n";

TEST(Runs, MarkTheRowAndThePlaceThatARefusalIsAbout)
{
    nle_desk desk;
    // Alone at fault is a number that no analysis looks at: the light is green.
    ASSERT_NO_FATAL_FAILURE(desk.open_text("Fault |KVRVER05_0\na = 1 #\nb = a+3x #\nc = 3 #\n"));
    desk.grid().set_current_row(1);
    desk.user.expect_box("Explicit expression # 2\rSyntax Error: invalid number '3x'");
    desk.run_by_mouse();
    EXPECT_EQ(desk.grid().current_row(), 2);
    ASSERT_TRUE(desk.user.boxes().back().place);
    EXPECT_EQ(*desk.user.boxes().back().place, (text_place{2, 6, 2}));
    EXPECT_EQ(desk.frame.children().size(), 1u);
    EXPECT_TRUE(desk.person.is_enabled("cmdRun"));
    EXPECT_EQ(desk.frame.ended(), 0);
}

TEST(Runs, SelectTheRowsThatFailOrUseEachOther)
{
    using testing::ElementsAre;
    nle_desk desk;
    ASSERT_NO_FATAL_FAILURE(desk.open_text("Fault |KVRVER05_0\na = 0 #\nb = 3 + 44.1 / a #\n"));
    desk.user.expect_box("Error: Zero denominator not allowed.\r44.1 / a", "Expression evaluation error.");
    desk.run_by_mouse();
    EXPECT_EQ(desk.grid().current_row(), 2);
    EXPECT_THAT(desk.marked_texts(), ElementsAre("44.1 / a"));

    ASSERT_NO_FATAL_FAILURE(desk.open_text("Circle |KVRVER05_0\nc = 1 #\na = b #\nd = 2 #\nb = a + c #\n"));
    desk.user.expect_box(
        "Internal Error trapped.\r(8888) Numeric failure\rCircular definition of explicit variables not "
        "allowed.");
    desk.run_by_mouse();
    EXPECT_THAT(desk.grid().selected_rows(), ElementsAre(2, 4));
    EXPECT_THAT(desk.marked_texts(), ElementsAre("a", "b"));
}

TEST(Runs, EndTheProgramBehindAFatalBox)
{
    nle_desk desk;
    // Passes all checks, and the builder of trees has no use for it.
    ASSERT_NO_FATAL_FAILURE(desk.open_text("Fatal |KVRVER05_0\na = (1) (2) #\n"));
    const std::size_t boxes = desk.user.boxes().size();
    desk.user.expect_box("Internal error found ! Please contact KELVARIN support personal.", "Fatal Error");
    desk.run_by_mouse();
    ASSERT_EQ(desk.user.boxes().size(), boxes + 1);
    EXPECT_TRUE(desk.user.boxes().back().fatal);
    EXPECT_EQ(desk.frame.ended(), 1);
}

TEST(Runs, StayAliveStopByEscAndChangeNothing)
{
    nle_desk desk;
    ASSERT_NO_FATAL_FAILURE(desk.open_text(slow_problem));
    const nle_content before = desk.content();
    QTimer ticks;
    int ticked = 0;
    QObject::connect(&ticks, &QTimer::timeout, [&ticked] { ++ticked; });
    ticks.start(10);
    robot::press(Qt::Key_F5);
    ASSERT_TRUE(desk.window.is_running());
    EXPECT_TRUE(wait_until([&] { return ticked > 20; }));

    for (const char* control : {"cmdRun", "cmdNewRoot", "cmdNewEquation", "cmdEdit", "cmdRemove", "cmbMethod",
                                "txtnle_min_ini_guess", "cmdUpDwn_0"})
        EXPECT_FALSE(desk.person.is_enabled(control)) << control;
    EXPECT_FALSE(robot::item_of(desk.menu("Examples"), "mnuSample1")->isEnabled());
    EXPECT_FALSE(desk.window.can(window_command::solve));
    desk.grid().setFocus();
    for (const Qt::Key key : {Qt::Key_F5, Qt::Key_Delete, Qt::Key_Return})
        robot::press(key);
    EXPECT_FALSE(desk.window.open(desk.folder / "problem.kvr"));
    desk.window.load_sample(1);

    ASSERT_TRUE(desk.window.is_running());
    EXPECT_TRUE(desk.window.can(window_command::stop));
    QElapsedTimer stopping;
    stopping.start();
    robot::press(Qt::Key_Escape);
    ASSERT_TRUE(wait_until([&] { return !desk.window.is_running(); }, 60000));
    // One evaluation under the sanitizers, with room for a busy machine.
    EXPECT_LT(stopping.elapsed(), 5000);
    EXPECT_EQ(desk.person.text("notice"), "Solution stopped.");
    EXPECT_TRUE(desk.person.is_shown("panel_1")) << "it covers nothing";
    EXPECT_EQ(desk.frame.children().size(), 1u);
    EXPECT_EQ(desk.content(), before);
    EXPECT_TRUE(desk.person.is_enabled("cmdRun"));
    EXPECT_TRUE(desk.person.is_enabled("cmdEdit"));
}

TEST(Runs, SeeTheCommentThatIsStillBeingTyped)
{
    nle_desk desk;
    ASSERT_NO_FATAL_FAILURE(desk.open_text("Sum |KVRVER05_0\na = 1+1 #\n"));
    desk.grid().setFocus();
    robot::press(Qt::Key_Right);
    robot::press(Qt::Key_Right);
    robot::press(Qt::Key_F2);
    robot::keys("two");
    EXPECT_THAT(desk.solve_by_key().plain_text(), testing::HasSubstr("two"));
    EXPECT_EQ(desk.cell(1, 3), "two");
}

TEST(Runs, HandTheirScanToAGraphBesideTheReport)
{
    nle_desk desk;
    ASSERT_NO_FATAL_FAILURE(desk.open_text("Root |KVRVER05_0\nf(x) = x^2-2 #\nx(min)=1, x(max)=2\n"));
    desk.person.click("chkGraph");
    desk.run_by_mouse();
    ASSERT_TRUE(wait_until([&] { return desk.frame.children().size() == 3; }));
    auto& graph = dynamic_cast<frmGraph&>(*desk.frame.children().back());
    EXPECT_EQ(graph.windowTitle().section(QLatin1Char('#'), 0, 0), "NLE Graph Solution ");
    EXPECT_EQ(graph.document().content().columns[1].name, "f(x)");
    EXPECT_EQ(graph.its_problem(), &desk.window);
}

} // namespace
