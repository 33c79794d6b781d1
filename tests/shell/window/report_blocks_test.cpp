// SPDX-License-Identifier: MIT
#include "shell/window/report_blocks.h"

#include "shell/window/report_document.h"
#include "support/scratch_folder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QPageLayout>
#include <QPdfWriter>

#include <cstdio>
#include <iterator>
#include <set>
#include <sstream>

namespace kelvarin
{

namespace
{

styled_line fixed(const std::string& text)
{
    styled_run run;
    run.text = text;
    run.font = "Courier New";
    run.family = font_class::monospace;
    run.size = 16;
    return {run};
}

std::vector<styled_line> table_of(std::initializer_list<std::string> rows)
{
    std::vector<styled_line> lines;
    for (const std::string& row : rows)
        lines.push_back(fixed(row));
    return lines;
}

std::vector<std::string> texts_of(const std::vector<styled_line>& lines)
{
    std::vector<std::string> texts;
    for (const styled_line& line : lines) {
        std::string text;
        for (const styled_run& run : line)
            text += run.text;
        texts.push_back(text);
    }
    return texts;
}

TEST(ReportBlocks, AWideTableIsBrokenBetweenItsColumns)
{
    struct row
    {
        const char* name;
        std::vector<styled_line> table;
        int fitting;
        std::vector<std::string> expected;
    };
    for (const row& each : {
             row{"it fits", table_of({"  a  b", " 10 20"}), 6, {"  a  b", " 10 20"}},
             row{"heads go with their columns",
                 table_of({"  a bb   c", " 10 20 300"}),
                 7,
                 {"  a bb ", " 10 20 ", "", "  c", "300"}},
             row{"names of rows come again",
                 table_of({"name   one two", "x      1.5 2.5", "long   -1  -2"}),
                 12,
                 {"name   one ", "x      1.5 ", "long   -1  ", "", "name   two", "x      2.5", "long   -2"}},
             row{"tabs are columns",
                 table_of({"a\tb\tc", "1\t2\t3"}),
                 9,
                 {"a       ", "1       ", "", "b       c", "2       3"}},
             row{"no columns at all",
                 table_of({"abcdefgh", "12345678"}),
                 3,
                 {"abc", "123", "", "def", "456", "", "gh", "78"}},
         }) {
        SCOPED_TRACE(each.name);
        const auto broken = in_blocks_of_columns(each.table, [&](const styled_run&) { return each.fitting; });
        EXPECT_EQ(texts_of(broken), each.expected);
    }
}

/// The text of a PDF as another program reads it.
std::string text_of_pdf(const test::scratch_folder& folder, const std::string& pdf)
{
    folder.write("report.pdf", pdf);
    const int status = std::system("pdftotext -layout report.pdf report.txt");
    EXPECT_EQ(status, 0);
    return folder.read("report.txt");
}

/// A matrix of equations with heads x1, x2, ..., each cell telling its row and column.
std::vector<styled_line> matrix_of(int size)
{
    std::vector<styled_line> lines(1);
    lines.front().push_back({});
    lines.front().front().text = "A line of text before it";
    for (int row = 0; row <= size; ++row) {
        std::string text;
        for (int column = 1; column <= size; ++column) {
            const std::string cell =
                row == 0 ? "x" + std::to_string(column) : std::to_string(row) + "." + std::to_string(column);
            text += std::string(8 - cell.size(), ' ') + cell;
        }
        lines.push_back(fixed(text));
    }
    return lines;
}

TEST(ReportBlocks, NothingOfAMatrixIsCutAtAnySize)
{
    const test::scratch_folder folder;
    for (const int size : {3, 14, 22, 40, 64, 130}) {
        SCOPED_TRACE(size);
        const std::string text = text_of_pdf(folder, *pdf_of(matrix_of(size), QStringLiteral("matrix")));
        std::istringstream stream(text);
        const std::set<std::string> words{std::istream_iterator<std::string>(stream), {}};
        int missing = 0;
        for (int row = 1; row <= size; ++row)
            for (int column = 1; column <= size; ++column)
                missing += words.contains(std::to_string(row) + "." + std::to_string(column)) ? 0 : 1;
        EXPECT_EQ(missing, 0);
        EXPECT_THAT(text, testing::HasSubstr("x" + std::to_string(size)));
    }
}

} // namespace
} // namespace kelvarin
