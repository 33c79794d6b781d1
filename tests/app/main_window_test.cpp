// SPDX-License-Identifier: MIT
#include "main_desk.h"

#include "app/frmAbout.h"
#include "app/frmStartup.h"
#include "app/window_tiles.h"
#include "nle/equations/window/equation_window.h"
#include "support/table.h"
#include "support/window_walk.h"

#include <QApplication>
#include <QLineEdit>
#include <QProgressBar>
#include <QTest>
#include <QTimer>
#include <QVBoxLayout>

#include <set>

namespace kelvarin::test
{

TEST(MainWindow, EachPressOfTheToolbarMakesOneMoreWindowUpToTen)
{
    main_desk desk;
    for (int i = 1; i <= 10; ++i) {
        desk.press_toolbar("nle");
        EXPECT_EQ(desk.window->count_problem_windows().all, i);
    }
    desk.user.expect_box("Only 10 concurrent problem forms are allowed. ");
    desk.press_toolbar("nle");
    desk.user.expect_box("Only 10 concurrent problem forms are allowed. ");
    desk.press_toolbar("deq");
    EXPECT_EQ(desk.window->count_problem_windows().all, 10);
    EXPECT_TRUE(desk.user.is_done());

    // The File menu shows the one window of its own, whatever the number.
    desk.run(window_command::new_nle);
    EXPECT_EQ(desk.window->count_problem_windows().all, 11);
    child_window* shown = desk.window->active_child();
    desk.area().bring_to_front(*desk.children().front());
    desk.run(window_command::new_nle);
    EXPECT_EQ(desk.window->count_problem_windows().all, 11);
    EXPECT_EQ(desk.window->active_child(), shown);
    shown->close_with_frame();
    desk.run(window_command::new_nle);
    EXPECT_EQ(desk.window->count_problem_windows().all, 11);
}

TEST(MainWindow, ThreeRegressionsAreTheMostAndOnlyTheNamesOfTheKindsCount)
{
    main_desk desk;
    desk.show_stand_in("frmSolution");
    for (int i = 0; i < 3; ++i)
        desk.show_stand_in("frmRGT");
    EXPECT_EQ(desk.window->count_problem_windows().all, 3);
    EXPECT_EQ(desk.window->count_problem_windows().regressions, 3);
    desk.user.expect_box("Only 3 concurrent table regression and analysis problem forms are allowed. ");
    desk.press_toolbar("reg");
    desk.user.expect_box("Please remove some Kelvarin problem documents before choosing this option.");
    desk.run(window_command::open);
    EXPECT_TRUE(desk.user.file_questions().empty());
    desk.press_toolbar("nle");
    EXPECT_EQ(desk.window->count_problem_windows().all, 4);
}

TEST(MainWindow, AFourthTableIsRefusedBehindGraphAndReportOfItsRun)
{
    main_desk desk;
    for (int i = 0; i < 3; ++i)
        desk.show_stand_in("frmRGT");
    desk.press_toolbar("deq");
    auto& problem = dynamic_cast<equation_window&>(*desk.window->active_child());
    problem.load_sample(1);
    for (const char* box : {"chkTable", "chkGraph"})
        robot(problem).click(box);
    desk.user.expect_box("Only 3 concurrent table regression and analysis problem forms are allowed. ");
    robot::press(Qt::Key_F5);
    EXPECT_TRUE(test::wait_until([&] { return desk.user.is_done(); }, 20000));
    EXPECT_EQ(desk.children().size(), 6u) << "the tables, the problem, its graph and its report";
    EXPECT_EQ(desk.window->count_problem_windows().regressions, 3);
}

TEST(MainWindow, TheMenusOfTheWindowInFrontTakeTheBar)
{
    main_desk desk;
    const std::vector<std::string> own{"&File", "&Help"};
    const std::vector<std::string> of_report{"&Report"};
    EXPECT_EQ(desk.bar_titles(), own);

    frmNLE& problem = desk.new_problem();
    std::vector<std::string> of_problem;
    for (const QMenu* menu : problem.menus())
        of_problem.push_back(menu->title().toStdString());
    EXPECT_EQ(desk.bar_titles(), of_problem);
    EXPECT_TRUE(problem.parentWidget()->isMaximized());

    stand_in* report = &desk.show_stand_in("frmSolution");
    EXPECT_EQ(desk.bar_titles(), of_report);
    desk.area().bring_to_front(problem);
    EXPECT_EQ(desk.bar_titles(), of_problem);
    problem.parentWidget()->showNormal();
    settle();
    EXPECT_EQ(desk.bar_titles(), of_problem);
    problem.parentWidget()->showMaximized();
    settle();
    EXPECT_EQ(desk.bar_titles(), of_problem);
    problem.close_with_frame();
    settle();
    EXPECT_EQ(desk.bar_titles(), of_report);
    report->close_with_frame();
    settle();
    EXPECT_EQ(desk.bar_titles(), own);
    EXPECT_TRUE(desk.person().is_shown("start_page"));
}

TEST(MainWindow, CommandsGoToTheWindowInFrontAndAreOffWhereItCanNot)
{
    main_desk desk;
    EXPECT_FALSE(desk.window->action(window_command::save)->isEnabled());
    EXPECT_FALSE(desk.person().is_enabled("save"));
    EXPECT_FALSE(desk.window->action(window_command::cascade)->isEnabled());

    auto* child = new stand_in(*desk.context, "frmSolution");
    child->possible = {window_command::save, window_command::undo};
    child->undo_caption = QStringLiteral("&Undo Remove equation");
    desk.window->show_child(child);
    desk.press_toolbar("save");
    robot::press(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(child->performed, (QList<window_command>{window_command::save, window_command::undo}));
    EXPECT_EQ(desk.window->action(window_command::undo)->text(), QStringLiteral("&Undo Remove equation"));
    EXPECT_FALSE(desk.window->action(window_command::copy)->isEnabled());

    child->possible = {};
    child->undo_caption.clear();
    child->tell();
    EXPECT_FALSE(desk.window->action(window_command::save)->isEnabled());
    EXPECT_EQ(desk.window->action(window_command::undo)->text(), QStringLiteral("&Undo"));
}

TEST(MainWindow, EditingMeansTheFocusedFieldBeforeTheWindowAroundIt)
{
    main_desk desk;
    auto* child = new stand_in(*desk.context, "frmSolution");
    child->possible = {window_command::undo, window_command::copy, window_command::select_all};
    child->undo_caption = QStringLiteral("&Undo Remove equation");
    auto* field = new QLineEdit(child);
    auto* read_only = new QLineEdit(QStringLiteral("fixed"), child);
    read_only->setReadOnly(true);
    auto* layout = new QVBoxLayout(child);
    layout->addWidget(field);
    layout->addWidget(read_only);
    desk.window->show_child(child);

    field->setFocus();
    robot::keys("abc");
    desk.run(window_command::select_all);
    EXPECT_EQ(field->selectedText(), QStringLiteral("abc"));
    EXPECT_EQ(desk.window->action(window_command::undo)->text(), QStringLiteral("&Undo"));
    desk.run(window_command::undo);
    EXPECT_EQ(field->text(), QString());
    EXPECT_TRUE(child->performed.isEmpty());

    // What the field can not do any more goes to the window, and so does all where the field is only read.
    desk.run(window_command::undo);
    EXPECT_EQ(child->performed, QList<window_command>{window_command::undo});
    read_only->setFocus();
    read_only->selectAll();
    desk.run(window_command::copy);
    EXPECT_EQ(child->performed, (QList<window_command>{window_command::undo, window_command::copy}));
}

TEST(MainWindow, StatusBarShowsFileTitleAndTheRunOfTheWindowInFront)
{
    main_desk desk;
    const auto panel = [&](const char* name) { return desk.person().text(name); };
    EXPECT_EQ(panel("pnlFile"), "No File  ");
    EXPECT_EQ(panel("pnlTitle"), "No Title ");
    EXPECT_FALSE(desk.person().is_shown("prgMain"));

    frmNLE& problem = desk.new_unsaved_problem();
    const std::string title = problem.document().title();
    EXPECT_FALSE(title.empty());
    EXPECT_EQ(panel("pnlTitle"), title);

    stand_in* runner = &desk.show_stand_in("frmGraph");
    EXPECT_EQ(panel("pnlTitle"), "No Title ");
    runner->set_running(true);
    const auto& progress = desk.person().find<QProgressBar>("prgMain");
    EXPECT_TRUE(progress.isVisible());
    EXPECT_EQ(progress.value() * 4, progress.maximum());
    desk.area().bring_to_front(problem);
    EXPECT_FALSE(progress.isVisible());
    desk.area().bring_to_front(*runner);
    EXPECT_TRUE(progress.isVisible());
    robot::press(Qt::Key_Escape);
    EXPECT_EQ(runner->performed, QList<window_command>{window_command::stop});
    EXPECT_FALSE(progress.isVisible());
}

TEST(MainWindow, SaysEachTextOnceAlsoWithoutAStatusBar)
{
    main_desk desk;
    ASSERT_EQ(desk.store.set_value("general_show_status_bar", "False"), std::nullopt);
    desk.new_problem();
    ASSERT_FALSE(desk.person().is_shown("StbMDI"));
    desk.window->say_once(QStringLiteral("<b> of the first"));
    EXPECT_TRUE(desk.person().is_shown("pnlSpeech"));
    EXPECT_EQ(desk.person().text("pnlSpeech"), "<b> of the first");
    EXPECT_FALSE(desk.person().is_shown("pnlFile"));
    desk.window->say_once(QStringLiteral("second"));
    desk.window->say_once(QStringLiteral("<b> of the first"));
    EXPECT_EQ(desk.person().text("pnlSpeech"), "second");
}

TEST(MainWindow, SaysThatSettingsCanNotBeSaved)
{
    main_desk desk;
    desk.registry.failure = file_failure{desk.folder.path(), "No space left on device"};
    store_settings(*desk.context);
    settle();
    EXPECT_EQ(desk.person().text("pnlSpeech"), "Settings can not be saved: No space left on device.");
}

TEST(MainWindow, ProgressIsAPartOfTheWay)
{
    main_desk desk;
    const auto& progress = desk.person().find<QProgressBar>("prgMain");
    const table<double, double, double, double> cases = {
        {3.0, 1.0, 5.0, 0.5}, {9.0, 1.0, 5.0, 1.0}, {0.0, 1.0, 5.0, 0.0}, {2.0, 4.0, 0.0, 0.5}, {1.0, 1.0, 1.0, 0.0}};
    for (const auto& [x, start, end, part] : cases) {
        SCOPED_TRACE(x);
        desk.window->set_progress(x, start, end);
        EXPECT_EQ(progress.value(), static_cast<int>(part * progress.maximum()));
    }
}

TEST(MainWindow, TheStatusBarFollowsItsSettingAtOnce)
{
    main_desk desk;
    EXPECT_TRUE(desk.person().is_shown("StbMDI"));
    desk.press_toolbar("setup");
    QWidget& setup = top_window("frmInitials");
    ASSERT_EQ(desk.store.set_value("general_show_status_bar", "False"), std::nullopt);
    QMetaObject::invokeMethod(&setup, "settings_changed");
    EXPECT_FALSE(desk.person().is_shown("StbMDI"));
    // There is one window of the settings, also when it is asked for again.
    setup.close();
    desk.run(window_command::setup);
    EXPECT_EQ(&top_window("frmInitials"), &setup);
}

TEST(MainWindow, EachToolIsOneWindowBesideTheMainOne)
{
    main_desk desk;
    // With the toolbar's button, if there is one.
    for (const auto& [which, key, window] :
         table<window_command, const char*, const char*>{{window_command::calculator, "calculate", "frmCal"},
                                                         {window_command::units, "units", "frmUni"},
                                                         {window_command::constants, "const", "frmConstant"},
                                                         {window_command::antoine, "", "frmAnt"},
                                                         {window_command::setup, "setup", "frmInitials"}}) {
        SCOPED_TRACE(window);
        desk.run(which);
        QWidget& tool = top_window(window);
        EXPECT_TRUE(tool.isActiveWindow());
        tool.showMinimized();
        desk.window->activateWindow();
        if (*key)
            desk.press_toolbar(key);
        else
            desk.run(which);
        EXPECT_EQ(&top_window(window), &tool);
        EXPECT_FALSE(tool.isMinimized());
    }
    EXPECT_TRUE(desk.children().empty());
    desk.window->activateWindow();
    desk.run(window_command::exit);
    for (const char* name : {"frmCal", "frmUni", "frmConstant", "frmAnt", "frmInitials"})
        for (const QWidget* window : QApplication::topLevelWidgets())
            EXPECT_FALSE(window->objectName() == QLatin1String(name) && window->isVisible()) << name;
}

TEST(MainWindow, KeysCloseTheWindowInFrontThoughItsFrameKnowsThemToo)
{
    main_desk desk;
    const QList<QKeySequence> keys = desk.window->action(window_command::close)->shortcuts();
    ASSERT_FALSE(keys.isEmpty());
    for (const QKeySequence& key : keys) {
        SCOPED_TRACE(key.toString().toStdString());
        desk.new_problem();
        QTest::keySequence(QApplication::focusWidget() ? QApplication::focusWidget() : desk.window.get(), key);
        settle();
        EXPECT_TRUE(desk.children().empty());
    }
}

TEST(MainWindow, HasNoControlWithoutNameNorClashNorCutCaption)
{
    main_desk desk;
    EXPECT_EQ(faults_of(*desk.window), std::vector<std::string>{});
    desk.new_problem();
    EXPECT_EQ(faults_of(*desk.window), std::vector<std::string>{});
    desk.run(window_command::about);
    EXPECT_EQ(faults_of(top_window("frmAbout")), std::vector<std::string>{});
    top_window("frmAbout").close();
}

TEST(MainWindow, StartPageOpensProblemsFilesAndExamples)
{
    main_desk desk;
    const auto file = desk.folder.write("gas.kvr", "Gas\nf(v) = v - 2\n1\n3\n");
    desk.person().click("cmdNew_nle");
    EXPECT_FALSE(desk.person().is_shown("start_page"));
    desk.front_problem().open(file);
    desk.run(window_command::close);

    EXPECT_EQ(desk.person().text("cmdRecent_1"), "gas.kvr");
    desk.person().click("cmdRecent_1");
    EXPECT_EQ(desk.front_problem().document().title(), "Gas");
    desk.run(window_command::close);

    // The list knows what the lines of an optimization do not tell.
    desk.person().click("cmdNew_opt");
    const auto front = [&] { return qobject_cast<problem_window*>(desk.window->active_child()); };
    front()->open(desk.folder.write("valley.kvr", "Valley\nx^2\nx(0)=1\n"));
    desk.run(window_command::close);
    desk.person().click("cmdRecent_2");
    EXPECT_EQ(front()->document().title(), "Valley");
    desk.run(window_command::close);

    // Examples stand in the order of their kinds.
    QStringList kinds;
    for (const QToolButton* row : desk.window->findChildren<QToolButton*>()) {
        if (!row->objectName().startsWith(QLatin1String("cmdExample_"))) continue;
        const QString kind = row->toolTip().section(QLatin1Char('('), 1).chopped(1);
        if (kinds.isEmpty() || kinds.last() != kind) kinds.append(kind);
    }
    EXPECT_GE(kinds.size(), 3);
    EXPECT_EQ(kinds.removeDuplicates(), 0) << kinds.join(QLatin1Char(',')).toStdString();
    EXPECT_EQ(kinds.first(), QStringLiteral("Linear Equations"));
}

TEST(MainWindow, WindowMenuListsAndArrangesTheWindows)
{
    main_desk desk;
    frmNLE& first = desk.new_problem();
    desk.new_problem();
    desk.new_problem();
    QMenu& menu = *desk.window->window_menu();
    emit menu.aboutToShow();
    const QAction* third = robot::item_of(menu, "mnuWindowList_3");
    EXPECT_TRUE(third->isChecked());
    EXPECT_EQ(third->text(), QStringLiteral("&3 ") + desk.front_problem().windowTitle().remove(QStringLiteral("[*]")));
    desk.person().trigger(menu, "mnuWindowList_1");
    EXPECT_EQ(desk.window->active_child(), &first);

    for (const window_command which : {window_command::tile_horizontally, window_command::tile_vertically}) {
        desk.run(which);
        QRect together;
        for (const child_window* child : desk.children()) {
            EXPECT_FALSE(together.intersects(child->parentWidget()->geometry()));
            together = together.united(child->parentWidget()->geometry());
        }
        EXPECT_EQ(together.width(), desk.area().viewport()->width());
        EXPECT_EQ(desk.window->active_child(), &first);
    }
    desk.run(window_command::cascade);
    std::set<std::pair<int, int>> corners;
    for (const child_window* child : desk.children())
        corners.emplace(child->parentWidget()->x(), child->parentWidget()->y());
    EXPECT_EQ(corners.size(), 3u);
    EXPECT_EQ(desk.window->active_child(), &first);

    for (child_window* child : desk.children())
        child->parentWidget()->showMinimized();
    desk.children().front()->parentWidget()->move(50, 50);
    desk.run(window_command::arrange_icons);
    for (const child_window* child : desk.children())
        EXPECT_GT(child->parentWidget()->y(), desk.area().viewport()->height() / 2);
    desk.person().trigger(menu, "mnuWindowList_1");
    EXPECT_FALSE(first.parentWidget()->isMinimized());
}

TEST(WindowTiles, FillTheAreaWithoutGapsOrOverlaps)
{
    const QRect area(3, 5, 1001, 703);
    for (const tiling_direction direction : {tiling_direction::horizontal, tiling_direction::vertical})
        for (int count = 1; count <= 12; ++count) {
            SCOPED_TRACE(count);
            const QList<QRect> places = tiled_areas(area, count, direction);
            ASSERT_EQ(places.size(), count);
            qint64 covered = 0;
            for (qsizetype i = 0; i < places.size(); ++i) {
                EXPECT_TRUE(area.contains(places[i]));
                covered += qint64(places[i].width()) * places[i].height();
                for (qsizetype j = 0; j < i; ++j)
                    EXPECT_FALSE(places[i].intersects(places[j]));
            }
            EXPECT_EQ(covered, qint64(area.width()) * area.height());
        }
    EXPECT_EQ(tiled_areas(area, 3, tiling_direction::horizontal).first().width(), area.width());
    EXPECT_EQ(tiled_areas(area, 3, tiling_direction::vertical).first().height(), area.height());
}

TEST(WindowTiles, ACascadeShowsTheBeginningOfEveryTitle)
{
    const QRect area(3, 5, 1001, 603);
    constexpr int title = 28;
    for (int count = 1; count <= 50; ++count) {
        SCOPED_TRACE(count);
        const QList<QRect> places = cascaded_areas(area, count, title);
        ASSERT_EQ(places.size(), count);
        for (qsizetype i = 0; i < places.size(); ++i) {
            EXPECT_TRUE(area.contains(places[i]));
            EXPECT_GE(places[i].height(), area.height() / 3);
            const QRect beginning(places[i].topLeft(), QSize(title, title));
            for (qsizetype j = i + 1; j < places.size(); ++j)
                EXPECT_FALSE(places[j].intersects(beginning)) << i << " under " << j;
        }
    }
}

TEST(Splash, ClosesByItsTimerOrAClickOnThePicture)
{
    main_desk desk;
    QPointer<frmStartup> splash = new frmStartup(desk.window.get());
    splash->show();
    robot(*splash).click("Picture1");
    EXPECT_FALSE(splash);

    splash = new frmStartup(desk.window.get());
    splash->show();
    auto* timer = splash->findChild<QTimer*>(QStringLiteral("tmrStartup"));
    ASSERT_TRUE(timer);
    timer->setInterval(1);
    EXPECT_TRUE(wait_until([&] { return !splash; }));
}

} // namespace kelvarin::test
