// SPDX-License-Identifier: MIT
#include "shell/document/named_columns.h"

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <array>
#include <bit>
#include <cmath>
#include <cstdint>
#include <cstdlib>

namespace kelvarin::test
{

TEST(NamedColumns, AreWrittenAsCommaSeparatedValues)
{
    named_columns table({"t", "a,b", "say \"x\""});
    EXPECT_EQ(csv_text(table), "t,\"a,b\",\"say \"\"x\"\"\"\n");
    table.add_row(std::array{0.0, 0.1, -1e300});
    table.add_row(std::array{1.0, std::nan(""), 1.0 / 3});
    EXPECT_EQ(csv_text(table), "t,\"a,b\",\"say \"\"x\"\"\"\n0,0.1,-1e+300\n1,,0.3333333333333333\n");
    EXPECT_EQ(tab_separated_text(named_columns({"a\tb", "c,d"})), "a b\tc,d\n");
}

RC_GTEST_PROP(NamedColumns, EveryNumberReadsBackToTheSameBits, (std::uint64_t bits))
{
    const auto number = std::bit_cast<double>(bits);
    RC_PRE(std::isfinite(number));
    named_columns table({"x"});
    table.add_row(std::array{number});
    RC_ASSERT(std::bit_cast<std::uint64_t>(std::strtod(csv_text(table).c_str() + 2, nullptr)) == bits);
}

} // namespace kelvarin::test
