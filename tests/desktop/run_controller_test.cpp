// SPDX-License-Identifier: MIT
#include "desktop/run_controller.h"

#include "support/robot.h"

#include <gtest/gtest.h>

#include <QThread>

#include <new>

namespace
{

using namespace kelvarin;
using kelvarin::test::wait_until;

/// Goes on until it is asked to stop.
int run_until_stopped(run_listener& listener)
{
    int rounds = 0;
    while (!listener.stop_asked()) {
        listener.fraction_done(0.5);
        ++rounds;
        QThread::msleep(1);
    }
    return rounds;
}

TEST(RunController, HandsTheOutcomeOverInTheWindowsThread)
{
    QObject window;
    run_controller run(&window);
    const QThread* done_in = nullptr;
    const QThread* run_in = nullptr;
    int outcome = 0;
    run.start(
        [&run_in](run_listener&) {
            run_in = QThread::currentThread();
            return 42;
        },
        [&](int given) {
            outcome = given;
            done_in = QThread::currentThread();
            EXPECT_FALSE(run.running());
        });
    EXPECT_TRUE(run.running());
    ASSERT_TRUE(wait_until([&] { return !run.running(); }));
    EXPECT_EQ(outcome, 42);
    EXPECT_EQ(done_in, QThread::currentThread());
    EXPECT_NE(run_in, QThread::currentThread());
}

TEST(RunController, SaysWhyAJobHasNoOutcome)
{
    QObject window;
    run_controller run(&window);
    QString reason;
    QObject::connect(&run, &run_controller::failed, &window, [&](const QString& given) { reason = given; });
    run.start([](run_listener&) -> int { throw std::bad_alloc(); }, [](int) { FAIL() << "there is no outcome"; });
    ASSERT_TRUE(wait_until([&] { return !run.running(); }));
    EXPECT_EQ(reason, QStringLiteral("Out of memory"));
    bool ended = false;
    run.start([](run_listener&) { return 1; }, [&](int) { ended = true; });
    EXPECT_TRUE(wait_until([&] { return ended; }));
}

TEST(RunController, StopsOneRunAndNotTheNext)
{
    QObject window;
    run_controller run(&window);
    int ended = 0;
    double seen = 0.0;
    QObject::connect(&run, &run_controller::progressed, &window, [&](double fraction) { seen = fraction; });
    run.start(run_until_stopped, [&](int) { ++ended; });
    // A second start while a job is under way does nothing.
    run.start([](run_listener&) { return 1; }, [](int) { ADD_FAILURE() << "two jobs at once"; });
    EXPECT_TRUE(wait_until([&] { return seen == 0.5; }));
    run.stop();
    ASSERT_TRUE(wait_until([&] { return ended == 1; }));
    run.start([](run_listener& listener) { return listener.stop_asked(); },
              [&](bool asked) { ended += asked ? 10 : 1; });
    ASSERT_TRUE(wait_until([&] { return !run.running(); }));
    EXPECT_EQ(ended, 2);
}

TEST(RunController, LosesNothingWhenItGoesDuringARunOrInItsOwnEnd)
{
    QObject window;
    auto run = std::make_unique<run_controller>(&window);
    run->start(run_until_stopped, [](int) { ADD_FAILURE() << "an outcome for a window that is gone"; });
    run.reset();
    kelvarin::test::settle();

    auto* suicidal = new run_controller(&window);
    bool gone = false;
    suicidal->start([](run_listener&) { return 0; },
                    [&](int) {
                        delete suicidal;
                        gone = true;
                    });
    EXPECT_TRUE(wait_until([&] { return gone; }));
}

} // namespace
