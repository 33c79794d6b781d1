// SPDX-License-Identifier: MIT
#include "deq/deq_file.h"
#include "platform/text_file.h"
#include "support/deq_problems.h"
#include "support/equation_rows.h"
#include "support/table.h"

#include <gtest/gtest.h>

#include <ostream>

namespace kelvarin
{

/// For messages of failed tests.
std::ostream& operator<<(std::ostream& out, const deq_content& content)
{
    return out << deq_content(content).title << '\n' << write_deq(content);
}

namespace
{

using test::differential_row;
using test::explicit_row;
using test::integrated;

TEST(DeqFile, WritesDifferentialRowsFirstThenValues)
{
    deq_content content = integrated(
        {explicit_row("k", "0.5"), differential_row("y", "-k*y", " 1.50 "), differential_row("z", "y", "2e0")}, "0.0",
        "10");
    content.title = "Chain ";
    content.method = deq_method::stiffbs;
    content.rows[1].comment = " with # and = {";
    EXPECT_EQ(write_deq(content), "Chain |KVRVER05_4\r\n"
                                  "d(y)/d(t) = -k*y # with # and = {\r\n"
                                  "d(z)/d(t) = y #\r\n"
                                  "k = 0.5 #\r\n"
                                  "t(0)=0.0\r\n"
                                  "y(0)=1.50\r\n"
                                  "z(0)=2e0\r\n"
                                  "t(f)=10\r\n");
    EXPECT_EQ(write_deq(content, true), "d(y)/d(t) = -k*y\r\n"
                                        "d(z)/d(t) = y\r\n"
                                        "k = 0.5\r\n"
                                        "t(0)=0.0\r\n"
                                        "y(0)=1.50\r\n"
                                        "z(0)=2e0\r\n"
                                        "t(f)=10\r\n");
}

TEST(DeqFile, ReadsWhatPeopleWrite)
{
    const deq_content decay = integrated({differential_row("y", "-y")});
    const auto titled = [](std::string title, deq_content content, deq_method method = deq_method::bs) {
        content.title = std::move(title);
        content.method = method;
        return content;
    };
    const auto commented = [](deq_content content, const std::string& comment) {
        content.rows[0].comment = comment;
        return content;
    };
    const test::table<const char*, const char*, deq_content> rows = {
        {"without a title", "d(y)/d(t)=-y\nt(0)=0\ny(0)=1\nt(f)=1\n", titled("", decay)},
        {"a title without a marker", "Decay\nd(y)/d(t)=-y\nt(0)=0\ny(0)=1\nt(f)=1\n", titled("Decay", decay)},
        {"a title like an equation", "x = 2\nd(y)/d(t)=-y\nt(0)=0\ny(0)=1\nt(f)=1\n", titled("x = 2", decay)},
        {"a title like a row, with the marker", "d(y) falls |KVRVER05_3\nd(y)/d(t)=-y\nt(0)=0\ny(0)=1\nt(f)=1\n",
         titled("d(y) falls", decay, deq_method::stiff)},
        {"the first marker decides", "T |KVRVER05_1 |KVRVER05_3\nd(y)/d(t)=-y\nt(0)=0\ny(0)=1\nt(f)=1\n",
         titled("T", decay)},
        {"no such method", "T |KVRVER05_5\nd(y)/d(t)=-y\nt(0)=0\ny(0)=1\nt(f)=1\n", titled("T", decay)},
        {"a method of two digits", "T |KVRVER05_31\nd(y)/d(t)=-y\nt(0)=0\ny(0)=1\nt(f)=1\n", titled("T", decay)},
        {"blanks, blank lines and another name in the row",
         "T |KVRVER05_ 4 \r\n\r\nd( y )/d(s) =  -y  #c#=1 \r\n\r\n t(0)= 0 \r\n\r\ny(0)=1\r\n\r\nt(f)=1",
         commented(titled("T", decay, deq_method::stiffbs), "c#=1 ")},
        {"values in another order, of nobody, behind the final value",
         "d(y)/d(t)=-y\nd(z)/d(t)=y\nt(0)=0\nz(0)=5\nq(0)=7\ny(0)=1\nt(f)=1\nz(0)=9\n",
         titled("", integrated({differential_row("y", "-y"), differential_row("z", "y", "5")}))},
        {"two rows of one name", "d(y)/d(t)=1\nd(y)/d(t)=2\nt(0)=0\ny(0)=3\ny(0)=4\nt(f)=1\n",
         titled("", integrated({differential_row("y", "1", "3"), differential_row("y", "2", "4")}))},
        {"markers in comments and comparisons",
         "d(y)/d(t)=a #from y(0)=1\na = if (0)==b then 1 else 2\nb=3\nt(0)=0\ny(0)=1\nt(f)=1\n",
         commented(titled("", integrated({differential_row("y", "a"), explicit_row("a", "if (0)==b then 1 else 2"),
                                          explicit_row("b", "3")})),
                   "from y(0)=1")},
        {"a variable d", "d(d)/d(t)=-d\nt(0)=0\nd(0)=1\nt(f)=1\n",
         titled("", integrated({differential_row("d", "-d")}))},
        {"variables d and f", "d(f)/d(d)=f\nd(0)=0\nf(0)=1\nd(f)=1\n",
         titled("", integrated({differential_row("f", "f")}, "0", "1", "d"))},
        {"explicit rows alone", "T |KVRVER05_2\na = 2\nt(0)=0\nt(f)=1\n",
         titled("T", integrated({explicit_row("a", "2")}))},
        {"explicit rows alone, without a title", "a = 2\nt(0)=0\nt(f)=1\n",
         titled("", integrated({explicit_row("a", "2")}))},
        {"explicit rows first", "T\na = 2\nd(y)/d(t)=a\nt(0)=0\ny(0)=1\nt(f)=1\n",
         titled("T", integrated({explicit_row("a", "2"), differential_row("y", "a")}))},
        {"cut behind the rows", "T |KVRVER05_0\nd(y)/d(t)=-y\n",
         titled("T", integrated({differential_row("y", "-y", "")}, "", "", ""), deq_method::rkf45)},
        {"cut behind the first value", "d(y)/d(t)=-y\nt(0)=0",
         titled("", integrated({differential_row("y", "-y", "")}, "0", ""))},
        {"a final value alone", "t(f)=2\ny(0)=1\n", titled("", integrated({}, "", "2"))},
        {"cut behind the title", "T |KVRVER05_3\n", titled("T", {}, deq_method::stiff)},
    };
    for (const auto& [name, text, expected] : rows) {
        SCOPED_TRACE(name);
        const std::optional<deq_content> read = read_deq(text, deq_method::bs);
        ASSERT_TRUE(read);
        EXPECT_EQ(*read, expected);
        // Rows of the two kinds change places when they are written; from then on nothing changes.
        const std::string written = write_deq(*read);
        EXPECT_EQ(write_deq(read_deq(written).value()), written);
    }
}

TEST(DeqFile, RefusesOtherProblems)
{
    for (const char* text :
         {"", "T\n", "T\n\n", "T\nf(x) = x-1\nx(0)=1\n", "T |KVRVER05_0\r\nf(x) = x-1 #\r\nx(0)=1\r\n", "T\n2\n1\t2\n",
          "T\nx*y\nx(0) = 1\n", "T\n2x = 1\nt(0)=0\n"}) {
        EXPECT_FALSE(read_deq(text)) << text;
    }
}

TEST(DeqFile, IsToldFromNonlinearProblemsByItsLaterLines)
{
    const auto told = [](const char* text) { return is_deq_file(split_lines(text)); };
    for (const char* text : {"d(y)/d(t) = -k*y\nk = 2\nt(0)=0\ny(0)=1\nt(f)=1\n", "d(y)/d(t) = -y\nt(0)=0\n",
                             "T\nk = 2\nt(0)=0\nt(f)=1\n", "T\nk = 2\nd(y)/d(t)=k\nt(0)=0\ny(0)=1\nt(f)=1\n"}) {
        EXPECT_TRUE(told(text)) << text;
    }
    for (const char* text : {"", "d(y)/d(t) = -y\n", "d(y) |KVRVER05_0\n3\n1\t2\n", "T\nk = 2\n", "T\nk = 2\nt(0)=0\n",
                             "T\nk = 2\nt(f)=1\nt(0)=0\n", "T\nf(f) = f-k\nk = 2\nf(0)=0\n",
                             "T\nf(x) = x-f\nf = 2\nx(0)=1\nx(f)=1\n", "T\nk = 2 #t(0)=0\nm = 3 #t(f)=1\n"}) {
        EXPECT_FALSE(told(text)) << text;
    }
}

} // namespace
} // namespace kelvarin
