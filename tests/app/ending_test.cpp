// SPDX-License-Identifier: MIT
#include "main_desk.h"

#include <QPointer>

namespace kelvarin::test
{

TEST(Ending, WritesTheStateThenThePlaceThenAllSettings)
{
    main_desk desk;
    desk.window->resize(500, 400);
    desk.registry.take_written();
    desk.run(window_command::exit);
    EXPECT_EQ(desk.exit_status, 0);
    EXPECT_FALSE(desk.window->isVisible());

    std::vector<std::string> expected{"Window State", "Window Width", "Window Height", "Window Top", "Window Left"};
    for (const setting_row& row : settings_table())
        expected.push_back("Software\\WinKlvn\\settings\\" + std::string(row.key));
    EXPECT_EQ(desk.registry.take_written(), expected);
    EXPECT_EQ(desk.registry.read(registry_root, "Window Width"), "500");
    EXPECT_EQ(desk.registry.read("Software\\WinKlvn\\settings\\newt_MAXITS", "value"), "150");
}

TEST(Ending, AMaximisedWindowKeepsItsLastPlaceAndTheBarItsSetting)
{
    main_desk desk;
    desk.window->showMaximized();
    settle();
    const auto width = desk.registry.read(registry_root, "Window Width");
    ASSERT_EQ(desk.store.set_value("general_show_status_bar", "False"), std::nullopt);
    desk.registry.take_written();
    desk.run(window_command::exit);
    EXPECT_EQ(desk.registry.take_written()[1], "Software\\WinKlvn\\settings\\general_show_status_bar");
    EXPECT_EQ(desk.registry.read(registry_root, "Window State"), "2");
    EXPECT_EQ(desk.registry.read(registry_root, "Window Width"), width);

    desk.start();
    EXPECT_TRUE(desk.window->isMaximized());
    EXPECT_FALSE(desk.person().is_shown("StbMDI"));
}

TEST(Ending, FirstStartTakesMostOfTheScreenAndWritesItAtOnce)
{
    main_desk desk;
    // The screen without a screen has 800 x 800 pixels.
    EXPECT_EQ(desk.window->size(), QSize(680, 680));
    EXPECT_EQ(desk.window->pos(), QPoint(60, 60));
    std::vector<std::string> written = desk.registry.take_written();
    // The frame that windows have here is no part of the placement.
    std::erase(written, std::string(registry_root) + "\\windows\\frame");
    EXPECT_EQ(written,
              (std::vector<std::string>{"Window Width", "Window Height", "Window Top", "Window Left", "Window State"}));
    desk.window->move(20, 30);
    desk.window->resize(640, 480);
    desk.run(window_command::exit);
    desk.start();
    EXPECT_EQ(desk.window->size(), QSize(640, 480));
    EXPECT_EQ(desk.window->pos(), QPoint(20, 30));
}

TEST(Ending, ARefusedQuestionKeepsAllWindowsAndTheirWork)
{
    main_desk desk;
    const QPointer<child_window> first = &desk.new_unsaved_problem();
    const QPointer<child_window> second = &desk.new_unsaved_problem();
    // The last window is asked first; its work could go, but then the other one is not let go.
    desk.user.expect_question(unsaved_question, user_answer::no);
    desk.user.expect_question(unsaved_question, user_answer::cancel);
    desk.run(window_command::exit);
    EXPECT_TRUE(desk.user.is_done());
    EXPECT_EQ(desk.exit_status, -1);
    EXPECT_TRUE(desk.window->isVisible());
    ASSERT_TRUE(first && second);
    EXPECT_EQ(desk.children().size(), 2u);
    EXPECT_EQ(desk.window->active_child(), first);
    // Both are still protected: one lock and two problems.
    EXPECT_EQ(std::distance(std::filesystem::directory_iterator(desk.folder / "recovery"), {}), 3);

    desk.user.expect_question(unsaved_question, user_answer::no);
    desk.user.expect_question(unsaved_question, user_answer::no);
    desk.run(window_command::exit);
    EXPECT_EQ(desk.exit_status, 0);
    EXPECT_FALSE(desk.window->isVisible());
    EXPECT_EQ(std::distance(std::filesystem::directory_iterator(desk.folder / "recovery"), {}), 1);
}

TEST(Ending, CloseAllStopsAtTheFirstThatRefusesAndShowsIt)
{
    main_desk desk;
    const QPointer<child_window> first = &desk.new_unsaved_problem();
    const QPointer<child_window> second = &desk.new_unsaved_problem();
    const QPointer<child_window> third = &desk.new_problem();
    desk.area().bring_to_front(*first);
    settle();
    desk.user.expect_question(unsaved_question, user_answer::cancel);
    desk.run(window_command::close_all);
    EXPECT_TRUE(desk.user.is_done());
    EXPECT_FALSE(third);
    ASSERT_TRUE(first && second);
    EXPECT_EQ(desk.window->active_child(), second);

    desk.user.expect_question(unsaved_question, user_answer::no);
    desk.user.expect_question(unsaved_question, user_answer::no);
    desk.run(window_command::close_all);
    EXPECT_TRUE(desk.children().empty());
}

TEST(Ending, RunsAreAskedToStopFirst)
{
    main_desk desk;
    stand_in& runner = desk.show_stand_in("frmNLE");
    runner.set_running(true);
    desk.window->close();
    EXPECT_EQ(runner.performed, QList<window_command>{window_command::stop});
    EXPECT_TRUE(wait_until([&] { return desk.exit_status == 0; }));
    EXPECT_FALSE(desk.window->isVisible());
}

TEST(Ending, AnImpossibleStateEndsTheProgramWithoutQuestionsAndKeepsTheWork)
{
    main_desk desk;
    desk.new_unsaved_problem();
    desk.window->end_program();
    EXPECT_EQ(desk.exit_status, 1);
    EXPECT_FALSE(desk.window->isVisible());
    EXPECT_TRUE(desk.user.questions().empty());
    EXPECT_EQ(std::distance(std::filesystem::directory_iterator(desk.folder / "recovery"), {}), 2);
}

} // namespace kelvarin::test
