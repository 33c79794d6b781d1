// SPDX-License-Identifier: MIT
#include "shell/window/report_cells.h"
#include "support/table.h"

#include <gmock/gmock.h>

namespace kelvarin
{

using testing::ElementsAre;
using testing::HasSubstr;
using testing::Not;

namespace
{

styled_line fixed(const char* text)
{
    styled_run run;
    run.text = text;
    run.font = "Courier New";
    run.family = font_class::monospace;
    return {run};
}

styled_line proportional(const char* text)
{
    styled_run run;
    run.text = text;
    return {run};
}

std::string data_of(const QMimeData& content, const char* format)
{
    return content.data(QString::fromLatin1(format)).toStdString();
}

} // namespace

TEST(ReportCells, TakesRowsOfTablesApart)
{
    for (const auto& [line, cells] : test::table<styled_line, std::vector<std::string>>{
             {fixed("  Variable      Value       f(x)       Ini Guess"), {"Variable", "Value", "f(x)", "Ini Guess"}},
             {fixed("  x           3           -2            3        "), {"x", "3", "-2", "3"}},
             // Numbers that wide signs push together, and a name of two words.
             {fixed("  y   1.234567 -1.234568  -1.5E-10"), {"y", "1.234567", "-1.234568", "-1.5E-10"}},
             {fixed("a b\tc"), {"a b", "c"}},
             // A blank in front may have the font of the text around the table.
             {{proportional(" ").front(), fixed("t     0     90").front()}, {"t", "0", "90"}},
             {fixed("  [1] f(x) = x - 2"), {"  [1] f(x) = x - 2"}},
             // Columns in another font stand by chance.
             {proportional("Two  words\tmore"), {"Two  words more"}},
             {fixed(""), {""}},
             {{}, {""}}}) {
        SCOPED_TRACE(cells.front());
        EXPECT_EQ(cells_of(line), cells);
        EXPECT_EQ(is_table_row(line), cells.size() > 1);
    }
}

TEST(ReportCells, CopiesATableAsATable)
{
    const std::vector<styled_line> table = {fixed("  Name    Value"), {}, fixed("  a<b     1.5  ")};
    const auto content = clipboard_content(table);
    EXPECT_EQ(content->text().toStdString(), "  Name    Value\n\n  a<b     1.5  ");
    EXPECT_EQ(data_of(*content, "text/tab-separated-values"), "Name\tValue\n\na<b\t1.5\n");
    EXPECT_THAT(content->html().toStdString(), HasSubstr("<tr><td>Name</td><td>Value</td></tr>\n"
                                                         "<tr><td>a&lt;b</td><td>1.5</td></tr>\n"));
    EXPECT_THAT(data_of(*content, "text/rtf"), HasSubstr("Courier New"));

    const std::vector<styled_line> mixed = {proportional("Head"), fixed("  Name    Value")};
    const auto report = clipboard_content(mixed);
    EXPECT_THAT(report->html().toStdString(), Not(HasSubstr("<td>")));
    EXPECT_EQ(data_of(*report, "text/tab-separated-values"), "Head\nName\tValue\n");
}

} // namespace kelvarin
