// SPDX-License-Identifier: MIT
#include "shell/document/run_outcome.h"

#include <gtest/gtest.h>

#include <functional>
#include <new>
#include <stdexcept>
#include <string>

namespace kelvarin
{
namespace
{

message_box failure_box(const runtime_failure& failure)
{
    return {std::to_string(failure.number()) + failure.detail(), box_icon::critical};
}

TEST(RunOutcome, WhateverARunThrowsBecomesTheBoxOfItsKind)
{
    struct ending
    {
        std::function<void()> run;
        std::vector<std::string> texts;
        bool has_report, stopped;
    };
    const ending endings[] = {
        {[] {}, {}, true, false},
        {[] { throw runtime_failure(failure_number::overflow); }, {"6"}, false, false},
        {[] { nrerror("too many"); }, {"8888too many"}, false, false},
        {[] { throw std::bad_alloc(); }, {"7"}, false, false},
        {[] { throw run_stopped(); }, {"stopped"}, false, true},
    };
    for (const ending& e : endings) {
        run_outcome outcome;
        guard_run(outcome, {failure_box, {"stopped"}}, [&] {
            outcome.has_report = true;
            e.run();
        });
        std::vector<std::string> texts;
        for (const message_box& box : outcome.boxes)
            texts.push_back(box.text);
        EXPECT_EQ(texts, e.texts);
        EXPECT_EQ(outcome.has_report, e.has_report);
        EXPECT_EQ(outcome.stopped, e.stopped);
    }
    run_outcome outcome;
    EXPECT_THROW(guard_run(outcome, {failure_box, {}}, [] { throw std::logic_error("a mistake"); }), std::logic_error);
}

} // namespace
} // namespace kelvarin
