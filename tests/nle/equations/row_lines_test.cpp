// SPDX-License-Identifier: MIT
#include "nle/equations/row_lines.h"

#include <gtest/gtest.h>

namespace kelvarin::test
{

TEST(RowLines, TheFirstHashSplitsEquationAndComment)
{
    const equation_row marked = {"x = a", "n.a.", "see # 2 = b"};
    EXPECT_EQ(line_of_row(marked, true), "x = a #see # 2 = b");
    EXPECT_EQ(row_of_line("x = a #see # 2 = b", "n.a."), marked);
    EXPECT_EQ(line_of_row(marked, false), "x = a");
    EXPECT_EQ(row_of_line("  x = a  ", ""), (equation_row{"x = a", "", ""}));
    EXPECT_EQ(row_of_line(" # only a comment", ""), std::nullopt);
    EXPECT_EQ(line_of_row({"x\r\n= a", "", "two\nlines"}, true), "x  = a #two lines");
}

TEST(RowLines, RowsAreWrittenByTheirKind)
{
    const std::vector<equation_row> rows = {{"a = 1", "n.a.", "c"}, {"d(y)/d(t) = a", "2", ""}, {"", "", "x"}};
    std::string text;
    write_rows(text, rows, {"d("}, true, true);
    write_rows(text, rows, {"d("}, false, false);
    EXPECT_EQ(text, "d(y)/d(t) = a #\r\na = 1\r\n");
}

TEST(RowLines, TheTitleEndsAtTheFirstOrTheLastMarker)
{
    EXPECT_EQ(title_line_text(" two\nlines ", 3, false), "two lines |KVRVER05_3");
    EXPECT_EQ(title_line_text("title", 3, true), "title");
    const std::string_view twice = "a |KVRVER05_1 |KVRVER05_2";
    EXPECT_EQ(read_title_line(twice, marker_search::last).title, "a |KVRVER05_1");
    EXPECT_EQ(read_title_line(twice, marker_search::last).method, "2");
    EXPECT_EQ(read_title_line(twice, marker_search::first).title, "a");
    EXPECT_EQ(read_title_line(twice, marker_search::first).method, "1 |KVRVER05_2");
    EXPECT_EQ(read_title_line(" old | title ", marker_search::last).title, "old | title");
    EXPECT_EQ(read_title_line("old", marker_search::last).method, std::nullopt);
}

} // namespace kelvarin::test
