// SPDX-License-Identifier: MIT
#include "platform/clock.h"

#include "support/table.h"

#include <gtest/gtest.h>

namespace kelvarin::test
{

// The seconds are those of `date -u +%s` for these days.
TEST(Clock, ReadsDatesAndSecondsAndRefusesOtherTexts)
{
    const table<std::string, int, int, int> rows = {
        {"2026-01-02", 2026, 1, 2},
        {"2024-02-29", 2024, 2, 29},
        {"0", 1970, 1, 1},
        {"@1767311999", 2026, 1, 1},
        {"1767312000", 2026, 1, 2},
        // 0 stands for no date.
        {"2026-02-29", 0, 0, 0},
        {"2026-13-01", 0, 0, 0},
        {"2026-1-2", 0, 0, 0},
        {"-5", 0, 0, 0},
        {"99999999999999", 0, 0, 0},
        {"today", 0, 0, 0},
        {"", 0, 0, 0},
    };
    for (const auto& [text, year, month, day] : rows) {
        SCOPED_TRACE(text);
        const std::optional<calendar_date> date = date_of_text(text);
        ASSERT_EQ(date.has_value(), year > 0);
        if (!date) continue;
        EXPECT_EQ(date->year, year);
        EXPECT_EQ(date->month, month);
        EXPECT_EQ(date->day, day);
    }
}

} // namespace kelvarin::test
