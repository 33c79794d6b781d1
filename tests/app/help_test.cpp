// SPDX-License-Identifier: MIT
#include "main_desk.h"

#include "app/frmAbout.h"
#include "help/window/frmHelp.h"
#include "support/table.h"

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

TEST(Help, HasAPlaceForEachWindow)
{
    main_desk desk;
    const auto page_at_f1 = [&] {
        robot::press(Qt::Key_F1);
        auto& help = top_window_of<frmHelp>("frmHelp");
        const std::string page = help.page_name();
        help.close();
        return page;
    };
    for (const auto& [which, page] : table<window_command, std::string>{{window_command::new_leq, "linear"},
                                                                        {window_command::new_nle, "nonlinear"},
                                                                        {window_command::new_deq, "differential"},
                                                                        {window_command::new_reg, "table"},
                                                                        {window_command::new_opt, "optimization"}}) {
        desk.window->activateWindow();
        desk.run(which);
        EXPECT_EQ(page_at_f1(), page);
    }
    for (const auto& [which, name, page] :
         table<window_command, const char*, std::string>{{window_command::calculator, "frmCal", "tools"},
                                                         {window_command::units, "frmUni", "tools"},
                                                         {window_command::constants, "frmConstant", "tools"},
                                                         {window_command::antoine, "frmAnt", "tools"},
                                                         {window_command::setup, "frmInitials", "settings"},
                                                         {window_command::about, "frmAbout", "start"}}) {
        desk.run(which);
        QWidget& window = top_window(name);
        window.activateWindow();
        ASSERT_TRUE(wait_until([&] { return window.isActiveWindow(); })) << name;
        EXPECT_EQ(page_at_f1(), page) << name;
        window.close();
    }
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
    for (const auto& [file, window] : table<const char*, const char*>{
             {"gas-volume.kvr", "frmNLE"}, {"least-cost-pipe.kvr", "frmOPT"}, {"load-cell.kvr", "frmRGT"}}) {
        emit top_window_of<frmHelp>("frmHelp").example_asked(QString::fromLatin1(file));
        settle();
        ASSERT_NE(desk.window->active_child(), nullptr) << file;
        EXPECT_EQ(desk.window->active_child()->objectName(), QString::fromLatin1(window));
    }
}

TEST(About, CopiesVersionsForAReportOfAFault)
{
    main_desk desk;
    desk.run(window_command::about);
    robot(top_window("frmAbout")).click("cmdCopyReport");
    const QString copied = desk.user.clipboard()->text();
    EXPECT_TRUE(copied.startsWith(QStringLiteral("Kelvarin 5.0.0, compiled by"))) << copied.toStdString();
    EXPECT_TRUE(copied.contains(QStringLiteral("Qt %1").arg(QString::fromLatin1(qVersion()))));
    EXPECT_TRUE(copied.contains(QStringLiteral("C library 2."))) << copied.toStdString();
    top_window("frmAbout").close();
}

} // namespace kelvarin::test
