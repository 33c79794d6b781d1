// SPDX-License-Identifier: MIT
// The main window without a mouse.
#include "app/start_page.h"
#include "main_desk.h"

#include <gtest/gtest.h>

namespace kelvarin::test
{

TEST(Keyboard, MakesOneMoreWindowOfTheKindInFront)
{
    main_desk desk;
    robot::press(Qt::Key_N, Qt::ControlModifier);
    ASSERT_EQ(desk.children().size(), 1U);
    EXPECT_EQ(desk.window->active_child()->objectName(), QLatin1String("frmNLE"));
    desk.press_toolbar("leq");
    robot::press(Qt::Key_N, Qt::ControlModifier);
    ASSERT_EQ(desk.children().size(), 3U);
    EXPECT_EQ(desk.window->active_child()->objectName(), QLatin1String("frmLEQ"));
}

TEST(Keyboard, ANewProblemOfLinearEquationsTakesNumbersAtOnce)
{
    main_desk desk;
    desk.press_toolbar("leq");
    robot::keys("7");
    robot::press(Qt::Key_Return);
    auto& problem = dynamic_cast<problem_window&>(*desk.window->active_child()).document();
    EXPECT_FALSE(problem.problem_saved()) << "the number went elsewhere";
    EXPECT_NE(problem.recovery_text().find("\"7\""), std::string::npos);
}

TEST(Keyboard, ReturnChoosesARowOfTheStartPage)
{
    main_desk desk;
    example_row(*desk.window, cable).setFocus();
    robot::press(Qt::Key_Return);
    ASSERT_EQ(desk.children().size(), 1U);
    EXPECT_EQ(desk.front_problem().document().title(), cable);
    EXPECT_EQ(desk.front_problem().document().path(), "") << "Save would write over the example";
}

TEST(Keyboard, UndoInABoundTakesBackTheProblemsStepAndKeepsWhatCanBeRedone)
{
    main_desk desk;
    frmNLE& problem = desk.new_problem();
    problem.load_sample(2);
    settle();
    const nle_content before = problem.document().content();
    const robot person(problem);
    person.type("txtnle_max_ini_guess", "7");
    ASSERT_NE(problem.document().content(), before);
    const nle_content after = problem.document().content();
    person.find("txtnle_max_ini_guess").setFocus();
    robot::press(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(problem.document().content(), before);
    robot::press(Qt::Key_Y, Qt::ControlModifier);
    EXPECT_EQ(problem.document().content(), after);
}

TEST(Keyboard, ClosesAToolWhichComesBackInItsSize)
{
    main_desk desk;
    desk.window->show_tool(window_command::calculator);
    QWidget& calculator = top_window("frmCal");
    const QSize larger = calculator.size() + QSize(40, 30);
    calculator.resize(larger);
    calculator.activateWindow();
    ASSERT_TRUE(wait_until([&] { return calculator.isActiveWindow(); }));
    robot::press(Qt::Key_W, Qt::ControlModifier);
    EXPECT_FALSE(calculator.isVisible());
    desk.window.reset();
    desk.start();
    desk.window->show_tool(window_command::calculator);
    EXPECT_EQ(top_window("frmCal").size(), larger);
}

} // namespace kelvarin::test
