// SPDX-License-Identifier: MIT
#include "shell/general_lib.h"
#include "support/table.h"

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <cmath>
#include <cstdlib>
#include <string>

namespace kelvarin
{

TEST(FormatNumber, GivesTheReportForm)
{
    // The borders of the plain form belong to it.
    // Three digits of exponent leave room for two decimals.
    // Powers of ten have their own number of digits although their logarithm falls short.
    // So near below one that the single-precision logarithm reaches it.
    const test::table<double, const char*> cases = {
        {0.0, " 0        "},          {-0.0, " 0        "},         {0.5, " 0.5      "},
        {-0.5, "-0.5      "},         {12.25, " 12.25    "},        {1.0, " 1        "},
        {10.0, " 10       "},         {-1.0, "-1        "},         {1.0 / 3.0, " 0.3333333"},
        {-200.0 / 3.0, "-66.666667"}, {2000.0 / 3.0, " 666.66667"}, {20000.0 / 3.0, " 6666.6667"},
        {-0.001, "-0.001    "},       {0.0009, " 9.0E-04  "},       {10000.0, " 10000    "},
        {10000.5, " 1.0E+04  "},      {1234567.0, " 1.235E+06"},    {-1234567.0, "-1.235E+06"},
        {1.2345e100, " 1.23E+100"},   {1e100, " 1.0E+100 "},        {9.999e-200, " 1.0E-199 "},
        {1000.0, " 1000     "},       {100.0, " 100      "},        {9999.9999, " 10000    "},
        {9999.999, " 09999.999"},     {9999.99, " 9999.99  "},      {99.9999999, " 100      "}};
    for (const auto& [value, expected] : cases)
        EXPECT_EQ(format_number(value), expected) << expected;
}

RC_GTEST_PROP(FormatNumber, IsTenCharactersThatShowTheNumber, ())
{
    const double size = std::pow(10.0, *rc::gen::inRange(-300000, 300000) / 1000.0);
    const double value = *rc::gen::element(1.0, -1.0) * size;
    const std::string text = format_number(value);
    RC_ASSERT(text.size() == 10u);
    RC_ASSERT((text.front() == '-') == (value < 0.0));
    // 0.#######, the worst of the plain forms, shows 0.001 to half of 1e-7; 0.0#E+000 shows three digits.
    const double shown = std::strtod(text.c_str(), nullptr);
    RC_ASSERT(std::fabs(shown - value) <= std::fabs(value) * 5.001e-3);
}

TEST(ExpressionText, LosesItsLineEndsAndTabs)
{
    EXPECT_EQ(clean_expression_text("a\r\n+\tb   c"), "a + b c");
    EXPECT_EQ(clean_expression_text("ab"), "ab");
    EXPECT_EQ(strip_line_controls("a\r\n\tb c"), "a\nb c");
}

TEST(ReplaceName, HitsWholeWordsOnly)
{
    for (const auto& [text, expected] :
         test::table<const char*, const char*>{{"x", "new"},
                                               {"x+x", "new+new"},
                                               {"x1 + ax + x_2 + x.1", "x1 + ax + x_2 + x.1"},
                                               {"(x)^x", "(new)^new"},
                                               {"f(x) = x*y", "f(new) = new*y"},
                                               {"x\tx\rx\nx", "new\tnew\rnew\nnew"},
                                               {"exp(x)/x-x", "exp(new)/new-new"},
                                               // Comparisons are not among the neighbours of a word.
                                               {"x>x", "x>x"},
                                               {"", ""},
                                               {"xx x", "xx new"}})
        EXPECT_EQ(replace_name(text, "x", "new"), expected) << text;
    EXPECT_EQ(replace_name("x x x", "x x", "y"), "y x");
    EXPECT_EQ(replace_name("abc", "", "y"), "abc");
}

TEST(Paths, AreSplitAtEitherSeparator)
{
    for (const auto& [path, folder, name, extension] : test::table<const char*, const char*, const char*, const char*>{
             {"/home/me/a.b.kvr", "/home/me/", "a.b.kvr", "kvr"},
             {"C:\\data\\x.KVR", "C:\\data\\", "x.KVR", "KVR"},
             {"C:\\data/x.rtf", "C:\\data/", "x.rtf", "rtf"},
             {"plain", "", "plain", ""},
             {"", "", "", ""},
             {"/", "/", "", ""}}) {
        SCOPED_TRACE(path);
        EXPECT_EQ(folder_of(path), folder);
        EXPECT_EQ(file_name_of(path), name);
        EXPECT_EQ(part_after_last(path, false, "."), extension);
    }
    EXPECT_EQ(part_after_last("a.b.kvr", true, "."), "a.b");
    EXPECT_EQ(part_after_last("a", true, "."), "a");
    EXPECT_EQ(part_after_last("a, b, c", false, ", "), "c");
    EXPECT_EQ(part_after_last("a", true, ""), "a");
}

TEST(ShortenPath, KeepsFirstFolderAndName)
{
    for (const auto& [path, expected] : test::table<const char*, const char*>{
             {"/home/someone/problems/x.kvr", "/home/.../x.kvr"},
             {"C:\\Users\\someone\\problems\\x.kvr", "C:/.../x.kvr"},
             {"folder/another/one-more/x.kvr", "folder/.../x.kvr"},
             {"/home/me/problem.kvr", "/home/me/problem.kvr"},
             {"/home/a-name-that-is-long.kvr", "/home/a-name-that-is-long.kvr"},
             {"a-name-that-is-very-long.kvr", "a-name-that-is-very-long.kvr"},
             {"/home/x/a-name-that-is-long.kvr", "/home/x/a-name-that-is-long.kvr"},
             {"", ""},
             {"////////////////////////////", "////////////////////////////"},
             // Twenty letters, of two bytes each.
             {"/\xC3\xA9\xC3\xA9\xC3\xA9/\xC3\xA9\xC3\xA9\xC3\xA9/\xC3\xA9\xC3\xA9\xC3\xA9\xC3\xA9/x.kvr-",
              "/\xC3\xA9\xC3\xA9\xC3\xA9/\xC3\xA9\xC3\xA9\xC3\xA9/\xC3\xA9\xC3\xA9\xC3\xA9\xC3\xA9/x.kvr-"}})
        EXPECT_EQ(shorten_path(path), expected) << path;
}

} // namespace kelvarin
