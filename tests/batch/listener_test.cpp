// SPDX-License-Identifier: MIT
#include "batch/interrupt_watch.h"
#include "batch/progress_line.h"

#include <gtest/gtest.h>

#include <csignal>
#include <sstream>
#include <thread>
#include <unistd.h>

namespace kelvarin::test
{

using namespace std::chrono_literals;

TEST(ProgressLine, ShowsNothingInTheFirstSecondAndWipesItselfAway)
{
    recording_listener program;
    std::ostringstream terminal;
    progress_line::time_point present{};
    {
        progress_line line(program, &terminal, "a.kvr", [&] { return present; });
        present += 900ms;
        line.fraction_done(0.1);
        EXPECT_EQ(terminal.str(), "") << "too early";
        present += 200ms;
        line.fraction_done(0.25);
        EXPECT_NE(terminal.str().find("a.kvr  25 %"), std::string::npos);
        present += 50ms;
        line.fraction_done(0.26);
        EXPECT_EQ(terminal.str().find("26"), std::string::npos) << "too often";
        present += 200ms;
        line.fraction_done(0.5);
        EXPECT_NE(terminal.str().find("50 %"), std::string::npos);
    }
    EXPECT_TRUE(terminal.str().ends_with("\r\x1b[K"));
    EXPECT_EQ(program.fraction(), 0.5);
}

TEST(ProgressLine, HandsTheWishToStopOnAndIsQuietWithoutATerminal)
{
    recording_listener program;
    progress_line::time_point present{};
    progress_line line(program, nullptr, "a.kvr", [&] { return present; });
    present += 5s;
    line.fraction_done(0.5);
    EXPECT_FALSE(line.stop_asked());
    program.ask_to_stop();
    EXPECT_TRUE(line.stop_asked());
}

TEST(InterruptWatch, CtrlCAsksTheRunToStopAndDoesNotEndTheProgram)
{
    recording_listener listener;
    {
        const interrupt_watch watch(listener);
        EXPECT_FALSE(listener.stop_asked());
        ASSERT_EQ(kill(getpid(), SIGINT), 0);
        for (int i = 0; i < 500 && !listener.stop_asked(); ++i)
            std::this_thread::sleep_for(10ms);
        EXPECT_TRUE(listener.stop_asked());
    }
    sigset_t blocked;
    pthread_sigmask(SIG_SETMASK, nullptr, &blocked);
    EXPECT_EQ(sigismember(&blocked, SIGINT), 0) << "the signal must get through again";
}

TEST(InterruptWatch, ASignalThatIsIgnoredStaysIgnored)
{
    struct sigaction before = {};
    struct sigaction ignore = {};
    ignore.sa_handler = SIG_IGN;
    sigaction(SIGINT, &ignore, &before);
    recording_listener listener;
    {
        const interrupt_watch watch(listener);
        kill(getpid(), SIGINT);
        std::this_thread::sleep_for(20ms);
    }
    EXPECT_FALSE(listener.stop_asked());
    sigaction(SIGINT, &before, nullptr);
}

} // namespace kelvarin::test
