// SPDX-License-Identifier: MIT
#include "deq/deq_accuracy.h"
#include "shell/report/rich_text.h"
#include "support/deq_problems.h"

#include <gmock/gmock.h>

#include <cmath>

namespace kelvarin
{
namespace
{

using test::differential_row;
using test::integrated;

TEST(DeqAccuracy, CountsTheDigitsThatHold)
{
    for (const deq_method method : test::all_deq_methods) {
        SCOPED_TRACE(method_text(method));
        deq_content content = integrated({differential_row("y", "-y"), differential_row("z", "0", "7")}, "0", "2");
        content.method = method;
        recording_listener listener;
        const deq_accuracy accuracy = check_accuracy({content, {}}, settings(), listener);
        ASSERT_TRUE(accuracy.has_report);
        EXPECT_NE(accuracy.other, method);
        EXPECT_EQ(is_for_stiff(accuracy.other), is_for_stiff(method));
        EXPECT_GT(listener.fraction(), 0.99);
        // No more digits than the value has, and those that the settings ask for.
        const double real = -std::log10(std::fabs(accuracy.variables[0].value / std::exp(-2.0) - 1.0));
        const double claimed = std::min(accuracy.variables[0].digits_at_tenth, accuracy.variables[0].digits_by_other);
        EXPECT_LE(claimed, real + 1.0);
        EXPECT_GE(claimed, 6.0);
        EXPECT_EQ(accuracy.variables[1].digits_by_other, 15.0);
        EXPECT_THAT(plain_text_of(read_rich_text(rich_text_document(accuracy_text(accuracy)))),
                    testing::HasSubstr("\nz           7           15, 15\n"));
    }
}

TEST(DeqAccuracy, HandsOnWhatARunSays)
{
    recording_listener listener;
    const deq_accuracy red = check_accuracy({integrated({}), {}}, settings(), listener);
    ASSERT_EQ(red.boxes.size(), 1U);
    EXPECT_EQ(red.boxes[0].title, "Kelvarin Guide Guide");
    listener.ask_to_stop();
    EXPECT_TRUE(check_accuracy({integrated({differential_row("y", "1")}), {}}, settings(), listener).stopped);
}

} // namespace
} // namespace kelvarin
