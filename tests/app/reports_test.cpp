// SPDX-License-Identifier: MIT
// Reports among the windows of the main window: where they stand, what their problem has of them.
#include "main_desk.h"

#include "shell/window/frmSolution.h"

#include <gmock/gmock.h>

#include <QAction>

namespace kelvarin
{

namespace
{

using test::main_desk;
using test::robot;
using test::settle;
using test::wait_until;

struct report_desk : main_desk
{
    explicit report_desk(QSize size = {1024, 640})
    {
        window->resize(size);
        settle();
    }

    frmNLE& problem(int sample)
    {
        frmNLE& made = new_problem();
        made.load_sample(sample);
        settle();
        return made;
    }
    /// What comes of F5 in the window in front.
    frmSolution& solve()
    {
        const std::size_t before = children().size();
        robot::press(Qt::Key_F5);
        if (!wait_until([&] { return children().size() > before; })) throw std::runtime_error("no report came");
        settle();
        return dynamic_cast<frmSolution&>(*children().back());
    }
    QStringList menu_of_reports()
    {
        QStringList captions;
        for (const QAction* entry : reports_menu().actions())
            captions.append((entry->isChecked() ? QStringLiteral("open ") : QString()) + entry->text());
        return captions;
    }
    QMenu& reports_menu()
    {
        QMenu* windows = window->window_menu();
        emit windows->aboutToShow();
        return *windows->findChild<QMenu*>(QStringLiteral("mnuReports"));
    }
    void close_older()
    {
        QMenu* windows = window->window_menu();
        emit windows->aboutToShow();
        person().trigger(*windows, "mnuCloseOlderReports");
    }
};

QWidget& frame_of(child_window& window)
{
    return *window.parentWidget();
}

TEST(Reports, StandBesideTheirProblemFromSmallScreensUp)
{
    // The main window's first size on screens of 1024, 1280 and 1920 pixels.
    for (const QSize size : {QSize(870, 595), QSize(1088, 680), QSize(1632, 918)}) {
        SCOPED_TRACE(size.width());
        report_desk desk(size);
        frmNLE& problem = desk.problem(1);
        EXPECT_TRUE(frame_of(problem).isMaximized());
        frmSolution& report = desk.solve();
        EXPECT_EQ(desk.window->active_child(), &report);
        const QRect whole = desk.area().viewport()->rect();
        const QRect left = frame_of(problem).geometry();
        const QRect right = frame_of(report).geometry();
        EXPECT_TRUE(whole.contains(left) && whole.contains(right));
        EXPECT_FALSE(left.intersects(right));
        EXPECT_EQ(left.width() + right.width(), whole.width()) << "no room is wasted";
        EXPECT_GE(frame_of(problem).width(), frame_of(problem).minimumSizeHint().width()) << "no button is cut";

        report.close_with_frame();
        settle();
        EXPECT_TRUE(frame_of(problem).isMaximized()) << "it has its room back";
        EXPECT_EQ(desk.window->active_child(), &problem);
    }
}

TEST(Reports, OfOneProblemComeWhereTheLastOneStands)
{
    report_desk desk({1088, 680});
    frmNLE& problem = desk.problem(1);
    QWidget& first = frame_of(desk.solve());
    first.setGeometry(first.geometry().adjusted(40, 30, 0, -50));
    settle();
    desk.area().bring_to_front(problem);
    const QRect of_problem = frame_of(problem).geometry();
    frmSolution& second = desk.solve();
    EXPECT_EQ(frame_of(second).geometry(), first.geometry());
    EXPECT_EQ(frame_of(problem).geometry(), of_problem);

    // The problem gets its room back with its last report, and not before.
    second.close_with_frame();
    settle();
    EXPECT_EQ(frame_of(problem).geometry(), of_problem);
    EXPECT_EQ(desk.window->active_child(), &problem);
}

TEST(Reports, LeaveTheTitleOfAGraphInSight)
{
    report_desk desk;
    desk.folder.write("root.kvr", "Root |KVRVER05_0\nf(x) = x^2-2 #\nx(min)=1, x(max)=2\n");
    desk.window->open_document("root.kvr");
    settle();
    desk.person().click("chkGraph");
    for (const std::size_t windows : {3u, 5u}) {
        robot::press(Qt::Key_F5);
        ASSERT_TRUE(wait_until([&] { return desk.children().size() == windows; }));
    }
    // Of each run the report, then its graph.
    const std::vector<child_window*> children = desk.children();
    const auto place = [&](std::size_t i) { return children[i]->parentWidget()->geometry(); };
    EXPECT_EQ(children[2]->objectName(), QLatin1String("frmGraph"));
    EXPECT_EQ(desk.window->active_child(), children[4]);
    EXPECT_GT(place(2).top(), place(1).top());
    EXPECT_EQ(place(2).bottomRight(), place(1).bottomRight());
    EXPECT_EQ(place(3), place(1)) << "a further report stands where the first one does";
    EXPECT_EQ(place(4), place(2));
}

TEST(Reports, GiveBackTheSizeAndPlaceThatAProblemHad)
{
    report_desk desk({1088, 680});
    frmNLE& problem = desk.problem(1);
    frame_of(problem).showNormal();
    const QRect before(150, 20, 900, 400);
    frame_of(problem).setGeometry(before);
    settle();
    desk.solve().close_with_frame();
    settle();
    EXPECT_EQ(frame_of(problem).geometry(), before);

    // A window that was moved by hand meanwhile stays there.
    frmSolution& report = desk.solve();
    const QRect by_hand(10, 10, 600, 300);
    frame_of(problem).setGeometry(by_hand);
    report.close_with_frame();
    settle();
    EXPECT_EQ(frame_of(problem).geometry(), by_hand);
}

TEST(Reports, LeadBackToTheirOwnProblemAndSolveItAgain)
{
    report_desk desk({1088, 680});
    frmNLE& problem = desk.problem(1);
    frmSolution& report = desk.solve();
    const frmNLE& other = desk.problem(2);
    ASSERT_EQ(desk.window->active_child(), &other);
    desk.area().bring_to_front(report);

    frmSolution& again = desk.solve();
    EXPECT_EQ(again.title_panel().toStdString(), problem.document().title());
    EXPECT_EQ(desk.window->active_child(), &again);
    again.close_with_frame();
    settle();
    EXPECT_EQ(desk.window->active_child(), &problem);

    // Behind a closed problem there is nothing to solve.
    desk.area().bring_to_front(report);
    EXPECT_TRUE(desk.window->action(window_command::solve)->isEnabled());
    problem.close_with_frame();
    settle();
    desk.area().bring_to_front(report);
    EXPECT_FALSE(desk.window->action(window_command::solve)->isEnabled());
}

TEST(Reports, HaveNoMarkOfUnsavedWork)
{
    report_desk desk;
    desk.problem(1);
    frmSolution& report = desk.solve();
    EXPECT_FALSE(report.isWindowModified());
    EXPECT_FALSE(desk.window->isWindowModified());
}

TEST(Reports, AreNamedByTheirProblemAndOpenedAgain)
{
    report_desk desk({1088, 680});
    frmNLE& problem = desk.problem(1);
    const std::string step_before = problem.document().undo_step();
    std::vector<std::string> texts;
    std::vector<QString> captions;
    for (int run = 0; run < 3; ++run) {
        frmSolution& report = desk.solve();
        texts.push_back(report.plain_text());
        captions.push_back(report.windowTitle().remove(QStringLiteral("[*]")));
    }
    const auto newest_first = [&](const char* third, const char* second, const char* first) {
        return QStringList{third + captions[2], second + captions[1], first + captions[0]};
    };
    EXPECT_EQ(desk.menu_of_reports(), newest_first("open ", "open ", "open "));
    desk.close_older();
    settle();
    EXPECT_EQ(desk.children().size(), 2u);
    EXPECT_EQ(desk.menu_of_reports(), newest_first("open ", "", ""));

    desk.reports_menu().actions().at(1)->trigger();
    settle();
    auto& opened = dynamic_cast<frmSolution&>(*desk.window->active_child());
    EXPECT_EQ(opened.plain_text(), texts[1]);
    EXPECT_EQ(desk.menu_of_reports(), newest_first("open ", "open ", ""));
    // Chosen again it comes to the front and is not opened twice.
    desk.area().bring_to_front(problem);
    desk.reports_menu().actions().at(1)->trigger();
    settle();
    EXPECT_EQ(desk.window->active_child(), &opened);
    EXPECT_EQ(desk.children().size(), 3u);

    // Nothing of it belongs to the problem.
    EXPECT_EQ(problem.document().undo_step(), step_before);
    desk.problem(2);
    EXPECT_FALSE(desk.reports_menu().menuAction()->isVisible()) << "another problem has no reports yet";
}

} // namespace
} // namespace kelvarin
