// SPDX-License-Identifier: MIT
#include "platform/format_mask.h"
#include "platform/run_time_text.h"

#include "platform/runtime_failure.h"
#include "support/table.h"

#include "support/german_locale.h"

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <bit>
#include <clocale>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <limits>
#include <string>

namespace kelvarin
{

namespace
{

/// Any finite double, each bit pattern as likely as another.
double any_finite_double()
{
    const auto bits = *rc::gen::resize(100, rc::gen::arbitrary<std::uint64_t>());
    const auto value = std::bit_cast<double>(bits * 0x9E3779B97F4A7C15u);
    RC_PRE(std::isfinite(value));
    return value;
}

/// The value of the 15 digits of `value`, by the C library.
double at_15_digits(double value)
{
    char text[64];
    std::snprintf(text, sizeof text, "%.14e", value);
    return std::strtod(text, nullptr);
}

} // namespace

TEST(NumericValue, TakesNumbersAndNothingElse)
{
    constexpr double least = std::numeric_limits<double>::denorm_min();
    const test::table<const char*, double> numbers = {
        {"12", 12.0}, {".07", 0.07},  {"5.", 5.0},       {"1e-3", 1e-3}, {"1E5", 1e5}, {"1d3", 1e3},    {"1D-3", 1e-3},
        {"+1", 1.0},  {"-1.5", -1.5}, {" \t 5 \t", 5.0}, {"1e+05", 1e5}, {"007", 7.0}, {"1e308", 1e308}};
    // Too small for a double is 0, too large is no number.
    const test::table<const char*, double> extreme = {
        {"1e-400", 0.0},
        {"1e-99999999999999999999", 0.0},
        {"0e99999999999999999999", 0.0},
        {"4.9406564584124654e-324", least},
        {"0.00000000000000000001e320", 1e300},
        {"100000000000000000000e-330", 1e-310},
    };
    for (const auto& cases : {numbers, extreme})
        for (const auto& [text, expected] : cases) {
            EXPECT_EQ(numeric_value(text), expected) << text;
            EXPECT_TRUE(is_numeric(text)) << text;
        }
    const std::vector<const char*> too_large = {"1e309", "-1e400", "1e99999999999999999999", "1.7976931348623159e308",
                                                "100000e304"};
    const std::vector<const char*> no_numbers = {"",    " ",        ".",     "-",    "+-1",   "1e",    "1e+",     "e5",
                                                 ".e5", "1 2",      "1.2.3", "1,5",  "1_000", "0x10",  "1f",      "inf",
                                                 "nan", "infinity", "-inf",  "1e5x", "1\r",   "1e5.0", "\xC2\xB2"};
    for (const auto& texts : {too_large, no_numbers})
        for (const char* text : texts) {
            EXPECT_EQ(numeric_value(text), std::nullopt) << text;
            EXPECT_FALSE(is_numeric(text)) << text;
        }
}

TEST(Val, ReadsTheNumberThatATextBeginsWith)
{
    const test::table<const char*, double> cases = {
        {"12abc", 12.0}, {"  3 4", 3.0}, {"\t-.5 p", -0.5}, {"1e", 1.0},     {"1e+x", 1.0},   {"1d2ap", 100.0},
        {"abc", 0.0},    {"", 0.0},      {".", 0.0},        {"-", 0.0},      {"0x10", 0.0},   {"inf", 0.0},
        {"nan", 0.0},    {"1.2.3", 1.2}, {"2,5", 2.0},      {"1e-400", 0.0}, {"9 9e999", 9.0}};
    for (const auto& [text, expected] : cases) {
        SCOPED_TRACE(text);
        EXPECT_EQ(val(text), expected);
        EXPECT_EQ(prefix_value(text), expected);
    }
}

TEST(Val, FailsWithOverflowWhereTheNumberIsTooLarge)
{
    EXPECT_EQ(prefix_value("1e999 x"), std::nullopt);
    try {
        val("-1e999 x");
        FAIL() << "no failure";
    } catch (const runtime_failure& failure) {
        EXPECT_EQ(failure.number(), 6);
        EXPECT_EQ(failure.description(), "Overflow");
    }
}

TEST(PlainText, HasFifteenDigitsAndSwitchesToTheExponentForm)
{
    const std::vector<const char*> kept = {"0",         "1",          "-7",         "0.5",    "0.1",       "2.5",
                                           "0.0001",    "0.00012345", "123456.789", "1E-05",  "9.999E-05", "1E-07",
                                           "-1.25E-09", "1E+15",      "1.5E+15",    "1E+100", "-1E-300"};
    for (const char* text : kept)
        EXPECT_EQ(plain_text(std::strtod(text, nullptr)), text);
    // Which side of the border is decided after rounding.
    const test::table<double, const char*> rounded = {
        {-0.0, "0"},
        {99999999999999.0, "99999999999999"},
        {999999999999999.0, "999999999999999"},
        {1.0 / 3.0, "0.333333333333333"},
        {2.0 / 3.0, "0.666666666666667"},
        {0.1 + 0.2, "0.3"},
        {999999999999999.9, "1E+15"},
        {0.000099999999999999999, "0.0001"},
        {1.7976931348623157e308, "1.79769313486232E+308"},
        {4.9406564584124654e-324, "4.94065645841247E-324"},
    };
    for (const auto& [value, expected] : rounded)
        EXPECT_EQ(plain_text(value), expected);
}

RC_GTEST_PROP(PlainText, ReadsBackAsTheValueOfItsFifteenDigits, ())
{
    const double value = any_finite_double();
    const double expected = at_15_digits(value);
    // The largest doubles round up to more than a double holds.
    RC_PRE(std::isfinite(expected));
    RC_ASSERT(numeric_value(plain_text(value)) == std::optional<double>(expected));
}

RC_GTEST_PROP(PlainText, GivesAnyFifteenDigitsBackAsTyped, ())
{
    const auto digits = *rc::gen::inRange<long long>(1, 999999999999999);
    const auto places = *rc::gen::inRange(0, 15);
    std::string text = std::to_string(digits);
    if (text.size() <= static_cast<std::size_t>(places)) text.insert(0, places + 1 - text.size(), '0');
    text.insert(text.size() - places, ".");
    text.erase(text.find_last_not_of('0') + 1);
    if (text.ends_with('.')) text.pop_back();
    RC_PRE(text >= "0.0001");
    RC_ASSERT(plain_text(*numeric_value(text)) == text);
}

TEST(FormatMasked, FollowsTheMask)
{
    using texts = std::vector<std::pair<double, const char*>>;
    const test::table<const char*, texts> masks = {
        {"0", {{2.5, "3"}, {3.5, "4"}, {-2.5, "-3"}, {0.4, "0"}, {-0.4, "0"}, {0.5, "1"}, {9.5, "10"}}},
        {"0", {{123456789012345678.0, "123456789012346000"}}},
        {"0.0", {{0.05, "0.1"}, {-0.05, "-0.1"}, {0.04, "0.0"}, {99.95, "100.0"}}},
        // The 15 digits count, not the double just below them.
        {"0.00", {{1.005, "1.01"}, {2.675, "2.68"}, {1e-300, "0.00"}}},
        {"0.00000000", {{0.1 + 0.2, "0.30000000"}}},
        {"#.#", {{0.5, ".5"}, {0.0, "."}, {5.0, "5."}, {12.34, "12.3"}}},
        {"#0.##", {{0.5, "0.5"}, {0.0, "0."}, {1234.5678, "1234.57"}}},
        {"0.#######", {{5.0, "5."}, {0.001, "0.001"}}},
        {"00.######", {{12.25, "12.25"}, {12.0, "12."}, {1.5, "01.5"}, {99.9999999, "100."}}},
        {"0000.####", {{1000.0, "1000."}}},
        {"0.0000", {{1.5, "1.5000"}}},
        // Rounding may carry into a further digit: the exponent grows, the digits in front stay one.
        {"0.0##E+00", {{1234567.0, "1.235E+06"}, {0.0009, "9.0E-04"}, {0.0, "0.0E+00"}, {1e100, "1.0E+100"}}},
        {"0.0##E+00", {{9.9996, "1.0E+01"}, {9.9994, "9.999E+00"}}},
        {"0.00E+00", {{-1234.5, "-1.23E+03"}, {1.5e-100, "1.50E-100"}, {0.00099999, "1.00E-03"}}},
        {"0.00000###E+000", {{1234.5, "1.23450E+003"}}},
        {"00.0E+00", {{1234.0, "12.3E+02"}, {999.96, "10.0E+02"}}},
        {"0.00E-00", {{1234.0, "1.23E03"}, {0.001, "1.00E-03"}}},
        {"#.##E+00", {{0.5, "5.E-01"}}},
        {"0.000E+00", {{1.7976931348623157e308, "1.798E+308"}}},
        {"0.0E+00", {{4.9406564584124654e-324, "4.9E-324"}}},
    };
    for (const auto& [mask, values] : masks)
        for (const auto& [value, expected] : values)
            EXPECT_EQ(format_masked(value, mask), expected) << mask;
}

RC_GTEST_PROP(FormatMasked, IsWithinHalfAUnitOfTheLastPlace, ())
{
    const double value = *rc::gen::inRange(-1000000000, 1000000000) / 8192.0;
    const int places = *rc::gen::inRange(0, 9);
    const std::string text = format_masked(value, places == 0 ? "0" : "0." + std::string(places, '0'));
    const double distance = std::fabs(std::strtod(text.c_str(), nullptr) - value);
    RC_ASSERT(distance <= 0.5 * std::pow(10.0, -places) * (1.0 + 1e-9) + 1e-9 * std::fabs(value) * 1e-3);
}

TEST(RunTimeText, PaysNoHeedToAGermanLocale)
{
    const test::german_locale german;
    EXPECT_EQ(std::string(std::localeconv()->decimal_point), ",");
    EXPECT_EQ(numeric_value("1.5"), 1.5);
    EXPECT_EQ(numeric_value("1,5"), std::nullopt);
    EXPECT_EQ(val("1.5 p"), 1.5);
    EXPECT_EQ(plain_text(1234.5), "1234.5");
    EXPECT_EQ(plain_text(1.5e-9), "1.5E-09");
    EXPECT_EQ(format_masked(1234.5, "0.00E+00"), "1.23E+03");
}

} // namespace kelvarin
