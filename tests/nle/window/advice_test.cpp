// SPDX-License-Identifier: MIT
#include "nle_desk.h"

#include "desktop/link_label.h"

#include <gmock/gmock.h>

#include <QLineEdit>

namespace kelvarin::test
{
namespace
{

/// x^2 + 100 has no root.
const char* const no_root = "None |KVRVER05_0\nf(x) = x^2 + 100 #\nf(y) = y - x #\nx(0)=3\ny(0)=1 p\n";
const char* const two_roots = "Two |KVRVER05_0\nf(x) = x - 2*y #\nf(y) = y - 3 #\nx(0)=1\ny(0)=1 ap\n";

TEST(Advice, OffersOtherMethodsAndGuessesWhenARunDidNotConverge)
{
    nle_desk desk;
    ASSERT_NO_FATAL_FAILURE(desk.open_text(no_root));
    desk.solve_by_mouse();
    auto& advice = desk.person.find<link_label>("lblAdvice");
    ASSERT_TRUE(wait_until([&] { return advice.isVisible(); }));
    EXPECT_EQ(advice.whole_text(), "The run did not converge. Try: safenewt, constrained, other guesses");
    desk.to_front();
    emit advice.linkActivated(QStringLiteral("2"));
    settle();
    robot::keys("9");
    robot::press(Qt::Key_Return);
    EXPECT_EQ(desk.content().rows.front().guess, "9");
    EXPECT_FALSE(advice.isVisible());

    desk.report_of([&] {
        desk.person.click("cmdRun");
        wait_until([&] { return advice.isVisible(); });
    });
    desk.report_of([&] { emit advice.linkActivated(QStringLiteral("1")); });
    EXPECT_EQ(desk.content().method, nle_method::constrained);
}

TEST(Advice, UsesASolutionAsGuessesFromTheProblemAndFromItsReport)
{
    nle_desk desk;
    ASSERT_NO_FATAL_FAILURE(desk.open_text(two_roots));
    EXPECT_FALSE(robot::item_of(desk.menu("Solution"), "mnuUseSolution")->isEnabled());
    frmSolution& report = desk.solve_by_mouse();
    ASSERT_TRUE(wait_until([&] { return !desk.window.is_running(); }));
    desk.choose("Solution", "mnuUseSolution");
    const auto expect_solution = [&] {
        EXPECT_NEAR(std::stod(desk.content().rows[0].guess), 6.0, 1e-9);
        EXPECT_NEAR(std::stod(desk.content().rows[1].guess), 3.0, 1e-9);
        EXPECT_THAT(desk.content().rows[1].guess, testing::EndsWith(" ap"));
    };
    expect_solution();
    EXPECT_EQ(desk.window.document().undo_step(), "Use solution as guesses");
    desk.window.perform(window_command::undo);
    EXPECT_EQ(desk.content().rows[1].guess, "1 ap");
    for (const QMenu* menu : report.menus())
        if (menu->title() == QLatin1String("&Report")) robot::item_of(*menu, "mnuUseSolution")->trigger();
    expect_solution();
}

TEST(Advice, EditsTheTitleInPlace)
{
    nle_desk desk;
    ASSERT_NO_FATAL_FAILURE(desk.open_text(two_roots));
    desk.grid().setFocus();
    desk.person.click("lblTitle");
    EXPECT_EQ(desk.person.text("txtTitle"), "Two");
    robot::keys("Three");
    robot::press(Qt::Key_Return);
    EXPECT_EQ(desk.content().title, "Three");
    EXPECT_TRUE(desk.grid().hasFocus());
    desk.person.click("lblTitle");
    robot::keys("Four");
    robot::press(Qt::Key_Escape);
    EXPECT_EQ(desk.person.text("lblTitle"), "Three");
    EXPECT_EQ(desk.window.document().undo_step(), "Change title");
}

} // namespace
} // namespace kelvarin::test
