// SPDX-License-Identifier: MIT
#include "main_desk.h"

#include "app/frmAbout.h"
#include "help/window/frmHelp.h"

namespace kelvarin::test
{

TEST(Help, OpensAtThePageOfTheControlInFront)
{
    main_desk desk;
    robot::press(Qt::Key_F1);
    auto& help = top_window_of<frmHelp>("frmHelp");
    EXPECT_EQ(help.page_name(), "start");
    help.close();

    desk.window->activateWindow();
    frmNLE& problem = desk.new_problem();
    robot(problem).find("cmbMethod").setFocus();
    robot::press(Qt::Key_F1);
    EXPECT_EQ(help.page_name(), "methods-nonlinear");
    EXPECT_TRUE(help.isVisible());

    // Tools are windows of their own, to which the main window's keys do not reach.
    desk.window->show_tool(window_command::units);
    QWidget& units = top_window("frmUni");
    units.activateWindow();
    ASSERT_TRUE(wait_until([&] { return units.isActiveWindow(); }));
    robot::press(Qt::Key_F1);
    EXPECT_EQ(help.page_name(), "tools");
    help.activateWindow();
    ASSERT_TRUE(wait_until([&] { return help.isActiveWindow(); }));
    robot::press(Qt::Key_F1);
    EXPECT_EQ(help.page_name(), "contents");
}

TEST(Help, FromAnEntryDialogLeavesItOpen)
{
    main_desk desk;
    frmNLE& problem = desk.new_problem();
    robot(problem).click("cmdNewRoot");
    QWidget& dialog = top_window("frmNleNE");
    ASSERT_TRUE(wait_until([&] { return dialog.isActiveWindow(); }));
    robot::press(Qt::Key_F1);
    EXPECT_EQ(top_window_of<frmHelp>("frmHelp").page_name(), "nonlinear");
    EXPECT_TRUE(dialog.isVisible());
}

TEST(Help, AnExampleOpensInTheMainWindow)
{
    main_desk desk;
    desk.run(window_command::contents);
    emit top_window_of<frmHelp>("frmHelp").example_asked(QStringLiteral("gas-volume.kvr"));
    settle();
    ASSERT_NE(desk.window->active_child(), nullptr);
    EXPECT_EQ(desk.window->active_child()->objectName(), QStringLiteral("frmNLE"));
}

TEST(About, CopiesVersionsForAReportOfAFault)
{
    main_desk desk;
    desk.run(window_command::about);
    robot(top_window("frmAbout")).click("cmdCopyReport");
    const QString copied = desk.user.clipboard()->text();
    EXPECT_TRUE(copied.startsWith(QStringLiteral("Kelvarin 5.0.0, compiled by"))) << copied.toStdString();
    EXPECT_TRUE(copied.contains(QStringLiteral("Qt %1").arg(QString::fromLatin1(qVersion()))));
    top_window("frmAbout").close();
}

} // namespace kelvarin::test
