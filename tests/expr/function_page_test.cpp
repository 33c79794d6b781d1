// SPDX-License-Identifier: MIT
#include "expr/operations.h"
#include "platform/run_time_text.h"
#include "support/golden.h"

#include <gtest/gtest.h>

#include <string>

namespace kelvarin
{
namespace
{

void add_rows(std::string& page, bool operators)
{
    page += operators ? "| operator | binds | meaning | example | value |\n|---|---|---|---|---|\n"
                      : "| function | meaning | example | value |\n|---|---|---|---|\n";
    for (const operation_row& row : operation_rows().subspan(1)) {
        if ((row.priority > 0) != operators) continue;
        page += "| `" + std::string(row.spelling) + "` | ";
        if (operators) page += std::to_string(row.priority) + " | ";
        page += std::string(row.meaning) + " | `" + std::string(row.example) + "` | " + plain_text(row.example_value) +
                " |\n";
    }
}

std::string function_page()
{
    std::string page = "# Operators and functions\n\n"
                       "Made from the table of operations; a test fails when it is stale.\n\n"
                       "All operators bind from the left, the power too. A leading minus binds like a subtraction: "
                       "`-2^2` is -4. A sign behind an operator needs parentheses: `2*(-3)`. Comparisons give 1 or 0 "
                       "and are exact.\n\n";
    add_rows(page, true);
    page += "\nAngles are in radians. A result that is not finite is a failure, never an infinity.\n\n";
    add_rows(page, false);
    return page;
}

TEST(FunctionPage, TellsWhatTheTableOfOperationsTells)
{
    test::expect_golden("../../docs/functions.md", function_page());
}

} // namespace
} // namespace kelvarin
