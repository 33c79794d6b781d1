// SPDX-License-Identifier: MIT
#include "main_desk.h"

#include "app/frmRecovery.h"

#include <csignal>
#include <cstdlib>
#include <sys/wait.h>
#include <unistd.h>

namespace
{

using namespace kelvarin;
using namespace kelvarin::test;

constexpr const char* folder_variable = "KELVARIN_TEST_RECOVERY_FOLDER";
constexpr const char* ready_file = "ready";

/// Runs the test below in a process of its own until its problem is kept, and kills it.
void leave_a_problem_behind(const std::filesystem::path& folder)
{
    const pid_t child = fork();
    ASSERT_GE(child, 0);
    if (child == 0) {
        setenv(folder_variable, folder.c_str(), 1);
        execl("/proc/self/exe", "kelvarin_app_tests", "--gtest_also_run_disabled_tests",
              "--gtest_filter=KilledProgram.DISABLED_KeepsAProblemAndWaits", nullptr);
        _exit(127);
    }
    const bool kept = wait_until([&] { return std::filesystem::exists(folder / ready_file); }, 60000);
    kill(child, SIGKILL);
    int status = 0;
    waitpid(child, &status, 0);
    ASSERT_TRUE(kept);
    ASSERT_TRUE(WIFSIGNALED(status));
    std::filesystem::remove(folder / ready_file);
}

/// Not a test of its own: what runs in the process that is killed.
TEST(KilledProgram, DISABLED_KeepsAProblemAndWaits)
{
    const char* folder = std::getenv(folder_variable);
    ASSERT_TRUE(folder) << "only to be run by another test";
    memory_registry registry;
    settings store(registry);
    const fixed_clock clock;
    scripted_user user;
    recovery_store recovery(folder);
    frmMDIKelvarin window({store, registry, clock, user, recovery});
    window.show();
    example_row(window, cable).click();
    enter_title(*window.active_child(), user);
    // Nothing but time passes: the copy is kept without being asked for.
    const auto is_kept = [&] {
        for (const auto& entry : std::filesystem::directory_iterator(folder))
            if (entry.is_regular_file() && entry.path().extension() == ".json") return true;
        return false;
    };
    ASSERT_TRUE(wait_until(is_kept));
    std::ofstream(std::filesystem::path(folder) / ready_file) << "kept";
    wait_until([] { return false; }, 60000);
}

struct recovery_desk : main_desk
{
    frmRecovery& bar() { return *window->findChild<frmRecovery*>(); }
    bool has_bar() { return window->findChild<frmRecovery*>() != nullptr; }
    /// The program starts anew, after whatever it was has ended.
    void start_again()
    {
        window.reset();
        // The old store lets go of its problems first, as the end of a process does.
        std::destroy_at(&recovery);
        std::construct_at(&recovery, folder.path() / "recovery");
        start();
        window->offer_recovered_problems();
        settle();
    }
};

TEST(Recovery, TheProblemOfAKilledProgramComesBackOnce)
{
    recovery_desk desk;
    leave_a_problem_behind(desk.folder.path() / "recovery");
    desk.window->offer_recovered_problems();
    settle();
    ASSERT_TRUE(desk.has_bar());
    EXPECT_TRUE(desk.bar().isVisible());

    // A second program that starts now is not offered it too.
    recovery_store second(desk.folder.path() / "recovery");
    EXPECT_TRUE(second.claim_orphans().empty());

    desk.person().click("cmdOpen_1");
    EXPECT_FALSE(desk.has_bar());
    frmNLE& problem = desk.front_problem();
    EXPECT_FALSE(problem.document().problem_saved());
    EXPECT_FALSE(problem.document().content().rows.empty());
    EXPECT_EQ(desk.person().text("pnlTitle"), problem.document().title());

    // It is kept on until it is saved or given up.
    desk.user.expect_question(unsaved_question, user_answer::no);
    desk.run(window_command::exit);
    desk.start_again();
    EXPECT_FALSE(desk.has_bar());
}

TEST(Recovery, WhatIsKeptIsOfferedAtTheNextStartAndWhatIsDiscardedIsGone)
{
    recovery_desk desk;
    leave_a_problem_behind(desk.folder.path() / "recovery");
    desk.start_again();
    desk.person().click("cmdKeep_1");
    EXPECT_FALSE(desk.has_bar());
    EXPECT_TRUE(desk.children().empty());
    desk.start_again();
    desk.person().click("cmdKeepAll");
    EXPECT_FALSE(desk.has_bar());
    desk.start_again();
    ASSERT_TRUE(desk.has_bar());
    desk.user.expect_question("Discard this problem? It can not be brought back afterwards.", user_answer::no);
    desk.person().click("cmdDiscard_1");
    EXPECT_TRUE(desk.has_bar());
    desk.user.expect_question("Discard this problem? It can not be brought back afterwards.", user_answer::yes);
    desk.person().click("cmdDiscard_1");
    EXPECT_FALSE(desk.has_bar());
    desk.start_again();
    EXPECT_FALSE(desk.has_bar());
}

TEST(Recovery, DamagedOrUnknownProblemsAreRefusedAndKept)
{
    recovery_desk desk;
    {
        recovery_store gone(desk.folder.path() / "recovery");
        gone.keep(gone.new_slot(), {.kind = "nle", .title = "Damaged", .path = {}, .kept_at = 200, .content = "{"});
        gone.keep(gone.new_slot(), {.kind = "later", .title = "Unknown", .path = {}, .kept_at = 100, .content = "x"});
    }
    desk.window->offer_recovered_problems();
    settle();
    desk.user.expect_box("The kept problem can not be read.");
    desk.person().click("cmdOpen_1");
    desk.user.expect_box("This version does not know problems of this kind.");
    desk.person().click("cmdOpen_2");
    EXPECT_TRUE(desk.children().empty());
    EXPECT_TRUE(desk.has_bar());
}

} // namespace
