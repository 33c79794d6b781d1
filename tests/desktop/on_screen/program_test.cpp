// SPDX-License-Identifier: MIT
// The real windows under a window manager: what has the keys, what the wheel changes, what is in sight.
#include "app/frmMDIKelvarin.h"
#include "desktop/commands.h"
#include "desktop/problem_window.h"
#include "nle/window/frmNLE.h"
#include "support/robot.h"
#include "support/scratch_folder.h"

#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QApplication>
#include <QComboBox>
#include <QScreen>
#include <QStatusBar>
#include <QTest>
#include <QWindow>

#include <memory>

namespace kelvarin
{

namespace
{

using test::robot;
using test::wait_until;

/// As the window manager sees it; the widget's own answer may be older.
QRect outer_place(const QWidget& window)
{
    return window.windowHandle()->frameGeometry();
}

/// The program as it is started, with the desktop's own boxes.
struct running_program
{
    test::scratch_folder folder;
    memory_registry registry;
    settings store{registry};
    fixed_clock clock;
    std::unique_ptr<user_interface> user = make_desktop_interface();
    recovery_store recovery{folder.path() / "recovery"};
    std::unique_ptr<frmMDIKelvarin> window;

    void start()
    {
        window = std::make_unique<frmMDIKelvarin>(program_services{store, registry, clock, *user, recovery});
    }
    void show()
    {
        window->show();
        EXPECT_TRUE(QTest::qWaitForWindowActive(window.get()));
        EXPECT_TRUE(wait_until([&] { return window->windowHandle()->frameMargins().top() > 0; }));
        QTest::qWait(100);
    }
    QWidget& tool(window_command which, const char* name) const
    {
        window->show_tool(which);
        QWidget& shown = test::top_window(name);
        EXPECT_TRUE(QTest::qWaitForWindowActive(&shown));
        QTest::qWait(100);
        return shown;
    }
};

TEST(ProgramOnScreen, TheStatusBarIsInSightWhateverWasKept)
{
    running_program program;
    for (const char* name : {"Window Width", "Window Height"})
        program.registry.write(registry_root, name, "3000");
    for (const char* name : {"Window Top", "Window Left"})
        program.registry.write(registry_root, name, "0");
    // At the first start nobody knows yet how wide frames are, at the second one it is known.
    for (int start = 0; start < 2; ++start) {
        program.start();
        program.show();
        const QRect screen = QApplication::primaryScreen()->availableGeometry();
        EXPECT_TRUE(wait_until([&] { return screen.contains(outer_place(*program.window)); }))
            << outer_place(*program.window).bottom();
        const QWidget* bar = program.window->statusBar();
        EXPECT_LE(bar->mapToGlobal(bar->rect().bottomLeft()).y(), screen.bottom());
    }
}

TEST(ProgramOnScreen, TheMainWindowAndItsToolsComeBackWhereTheyWere)
{
    running_program program;
    QRect main_place;
    QRect tool_place;
    for (int start = 0; start < 3; ++start) {
        program.start();
        program.show();
        QWidget& tool = program.tool(window_command::constants, "frmConstant");
        if (start == 0) {
            tool.windowHandle()->setFramePosition({230, 90});
            program.window->windowHandle()->setFramePosition({40, 30});
            EXPECT_TRUE(wait_until([&] { return outer_place(tool).topLeft() == QPoint(230, 90); }));
            EXPECT_TRUE(wait_until([&] { return outer_place(*program.window).topLeft() == QPoint(40, 30); }));
            tool_place = outer_place(tool);
            main_place = outer_place(*program.window);
        }
        EXPECT_EQ(outer_place(tool), tool_place) << "start " << start;
        EXPECT_EQ(outer_place(*program.window), main_place) << "start " << start;
        program.window->close();
    }
}

TEST(ProgramOnScreen, ALoneToolHasTheKeysAgainBehindItsHelp)
{
    running_program program;
    program.start();
    QWidget& tool = program.tool(window_command::antoine, "frmAnt");
    robot(tool).click("cmdHelp");
    QWidget& help = test::top_window("frmHelp");
    ASSERT_TRUE(QTest::qWaitForWindowActive(&help));
    QTest::keyClick(&help, Qt::Key_Escape);
    EXPECT_FALSE(help.isVisible());
    EXPECT_TRUE(QTest::qWaitForWindowActive(&tool));
}

TEST(ProgramOnScreen, AReportGivesRoomAndKeysBackToItsProblem)
{
    running_program program;
    program.start();
    program.show();
    program.window->action(window_command::new_nle)->trigger();
    auto& problem = dynamic_cast<frmNLE&>(*program.window->active_child());
    problem.load_sample(1);
    const auto has_keys = [](const QWidget& window) {
        return wait_until([&] { return window.isAncestorOf(QApplication::focusWidget()); });
    };
    for (int run = 0; run < 2; ++run) {
        robot::press(Qt::Key_F5);
        ASSERT_TRUE(
            wait_until([&] { return program.window->active_child()->objectName() == QLatin1String("frmSolution"); }));
        child_window& report = *program.window->active_child();
        EXPECT_TRUE(has_keys(report));
        EXPECT_FALSE(problem.parentWidget()->geometry().intersects(report.parentWidget()->geometry()));
        robot::press(Qt::Key_W, Qt::ControlModifier);
        EXPECT_TRUE(has_keys(problem));
        EXPECT_TRUE(problem.parentWidget()->isMaximized());
    }
}

TEST(ProgramOnScreen, AnArrowBehindTheReportOfARunChangesNothing)
{
    for (const auto& [name, text] :
         {std::pair("leq.kvr", "Three\r\n2\r\nvarsnames==a,b,c\r\n2\t1\t0\r\n1\t3\t1\r\n0\t1\t2\r\n3\t5\t3\r\n"),
          {"nle.kvr", "Roots |KVRVER05_0\nf(x) = x^2-y #\nf(y) = x-y+1 #\nx(0)=1\ny(0)=1\n"}}) {
        SCOPED_TRACE(name);
        running_program program;
        program.start();
        program.show();
        program.window->open_document(program.folder.write(name, text));
        auto* problem = qobject_cast<problem_window*>(program.window->active_child());
        ASSERT_TRUE(problem);
        test::settle();
        const QWidget* keyboard = QApplication::focusWidget();
        ASSERT_TRUE(problem->isAncestorOf(keyboard));
        const std::string before = problem->document().recovery_text();
        robot::press(Qt::Key_F5);
        ASSERT_TRUE(wait_until([&] { return program.window->active_child() != problem; }));
        robot::press(Qt::Key_W, Qt::ControlModifier);
        ASSERT_TRUE(wait_until([&] { return program.window->active_child() == problem; }));
        test::settle();
        EXPECT_EQ(QApplication::focusWidget(), keyboard) << QApplication::focusWidget()->objectName().toStdString()
                                                         << " in place of " << keyboard->objectName().toStdString();
        for (const Qt::Key key : {Qt::Key_Up, Qt::Key_Down, Qt::Key_Down})
            robot::press(key);
        EXPECT_EQ(problem->document().recovery_text(), before);
        EXPECT_TRUE(problem->document().problem_saved());
    }
}

TEST(ProgramOnScreen, TheWheelPassesOverEveryChoiceThatHasNoFocus)
{
    running_program program;
    program.start();
    program.show();
    for (const window_command which : {window_command::new_nle, window_command::new_leq})
        program.window->action(which)->trigger();
    for (const auto& [which, name] : {std::pair(window_command::units, "frmUni"),
                                      {window_command::constants, "frmConstant"},
                                      {window_command::calculator, "frmCal"}})
        program.tool(which, name);
    int choices = 0;
    for (QWidget* window : QApplication::topLevelWidgets()) {
        for (QComboBox* choice : window->findChildren<QComboBox*>()) {
            if (!choice->isVisible() || choice->hasFocus() || choice->count() < 2) continue;
            ++choices;
            const int before = choice->currentIndex();
            for (const int turn : {-1, 1, 1})
                robot::turn_wheel(*choice, turn);
            EXPECT_EQ(choice->currentIndex(), before) << choice->objectName().toStdString();
            EXPECT_FALSE(choice->hasFocus()) << choice->objectName().toStdString();
        }
    }
    EXPECT_GE(choices, 4) << "methods, number of equations, units";
}

} // namespace
} // namespace kelvarin
