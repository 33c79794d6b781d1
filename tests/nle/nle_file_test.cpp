// SPDX-License-Identifier: MIT
#include "nle/nle_file.h"
#include "platform/text_file.h"
#include "support/equation_rows.h"
#include "support/table.h"

#include <gtest/gtest.h>
#include <rapidcheck.h>

#include <algorithm>
#include <ostream>

namespace kelvarin
{

/// For messages of failed tests.
std::ostream& operator<<(std::ostream& out, const equation_row& row)
{
    return out << '[' << row.equation << '|' << row.guess << '|' << row.comment << ']';
}

std::ostream& operator<<(std::ostream& out, const nle_content& content)
{
    out << '"' << content.title << "\" " << method_text(content.method);
    for (const equation_row& row : content.rows)
        out << ' ' << row;
    return out << " (" << content.lower_bound << ", " << content.upper_bound << ')';
}

namespace
{

using test::explicit_row;
using test::implicit_row;

TEST(NleFile, WritesImplicitRowsFirstThenGuesses)
{
    nle_content content;
    content.title = "Two equations ";
    content.method = nle_method::constrained;
    content.rows = {explicit_row("r", "5"), implicit_row("x", "x*y - r", "1 ap"), implicit_row("y", "x - y", "2")};
    content.rows[1].comment = " with # and {";
    EXPECT_EQ(write_nle(content), "Two equations |KVRVER05_3\r\n"
                                  "f(x) = x*y - r # with # and {\r\n"
                                  "f(y) = x - y #\r\n"
                                  "r = 5 #\r\n"
                                  "x(0)=1 ap\r\n"
                                  "y(0)=2\r\n");
    EXPECT_EQ(write_nle(content, true), "Two equations\r\n"
                                        "f(x) = x*y - r\r\n"
                                        "f(y) = x - y\r\n"
                                        "r = 5\r\n"
                                        "x(0)=1 ap\r\n"
                                        "y(0)=2\r\n");
}

TEST(NleFile, WritesTheBoundsOfASingleEquationAsNumbers)
{
    nle_content content;
    content.rows = {implicit_row("x", "x^2 - 2", "7")};
    content.lower_bound = " -3.50 ";
    content.upper_bound = "1e-7";
    EXPECT_EQ(write_nle(content), " |KVRVER05_0\r\nf(x) = x^2 - 2 #\r\nx(min)=-3.5, x(max)=1E-07\r\n");
}

TEST(NleFile, GuessLinesNameWhateverStandsInTheParentheses)
{
    nle_content content;
    content.rows = {{"f( 2x ) = 1", "1", ""}, {"f(a=b) = 1", "2", ""}, {"f(f() = 1", "3", ""}};
    const std::string written = write_nle(content, true);
    EXPECT_EQ(written.substr(written.find("1\r\n2x") + 3), "2x(0)=1\r\n(0)=2\r\n(0)=3\r\n");
    const std::optional<nle_content> read = read_nle(written);
    ASSERT_TRUE(read);
    EXPECT_EQ(read->rows, content.rows);
}

std::string shown(const std::optional<nle_content>& content)
{
    std::ostringstream out;
    if (content) out << *content;
    return out.str();
}

TEST(NleFile, ReadsTitleAndMethodOfTheFirstLine)
{
    const test::table<const char*, const char*> lines = {
        {"A title  |KVRVER05_2", "\"A title\" safebroydn"},
        {"Old", "\"Old\" constrained"},
        {"T |KVRVER05_4", "\"T\" constrained"},
        {"T |KVRVER05_", "\"T\" constrained"},
        {"a |b |KVRVER05_1", "\"a |b\" safenewt"},
    };
    for (const auto& [line, expected] : lines)
        EXPECT_EQ(shown(read_nle(std::string(line) + "\r\na = 1 #\r\n", nle_method::constrained)),
                  std::string(expected) + " [a = 1|n.a.|] (, )");
}

TEST(NleFile, ReadsEveryFormOfAProblem)
{
    const test::table<const char*, const char*, const char*> files = {
        {"current format", "f(x) = x*y #one # two\r\nf(y) = y #\r\na = 1 #\r\nx(0)=1 p\r\ny(0)= 2 \r\n",
         "[f(x) = x*y|1 p|one # two] [f(y) = y|2|] [a = 1|n.a.|] (, )"},
        {"older format", "f(x) = x*y\nf(y) = y\nx(0)=1\ny(0)=2 ap\n", "[f(x) = x*y|1|] [f(y) = y|2 ap|] (, )"},
        {"bounds on one line", "f(x) = x\nx(min)=1, x(max)=4\n", "[f(x) = x|2.5|] (1, 4)"},
        {"bounds on two lines", "f(x) = x\nx(min)=1\nx(max)=1E-07 \n", "[f(x) = x|0.50000005|] (1, 1E-07)"},
        {"bounds and a blank line", "f(x) = x\nx(min)=-1, x(max)=1\n\n", "[f(x) = x|0|] (-1, 1)"},
        {"bounds around a blank line", "f(x) = x\nx(min)=2\n\nx(max)=4\n", "[f(x) = x|3|] (2, 4)"},
        {"the upper bound first", "f(x) = x\nx(max)=4, x(min)=1\n", "[f(x) = x|2.5|] (1, 4)"},
        {"bounds cut short", "f(x) = x\nx(min)=2", "[f(x) = x||] (2, )"},
        {"a single equation with a guess", "f(x) = x\nx(0)=3\n", "[f(x) = x|3|] (, )"},
        {"bounds of a system are none", "f(x) = x\nf(y) = y\nx(min)=1, x(max)=2\n", "[f(x) = x||] [f(y) = y||] (, )"},
        {"guesses by position", "f(x) = x\nf(y) = y\nz(0)=1\nx(0)=2\n", "[f(x) = x|1|] [f(y) = y|2|] (, )"},
        {"guesses cut short", "f(x) = x\nf(y) = y\nx(0)=1\n", "[f(x) = x|1|] [f(y) = y||] (, )"},
        {"markers in comments are words", "f(x) = x #start at x(0)=1\nf(y) = y #\na = 1 #x(min)=2\nx(0)=5\ny(0)=6\n",
         "[f(x) = x|5|start at x(0)=1] [f(y) = y|6|] [a = 1|n.a.|x(min)=2] (, )"},
        {"a comparison with (0) is an equation", "a = if (0)==b then 1 else 2\nb = (0)=<1\n",
         "[a = if (0)==b then 1 else 2|n.a.|] [b = (0)=<1|n.a.|] (, )"},
        {"the variable f has a guess", "f(f) = f - g #\nf(g) = g #\nf(0)=1\ng(0)=2\n",
         "[f(f) = f - g|1|] [f(g) = g|2|] (, )"},
        {"the variable f has bounds", "f(f) = f - 1 #\nf(min)=0, f(max)=2\n", "[f(f) = f - 1|1|] (0, 2)"},
        {"an equation of min without blanks", "f(min)=min - 1\nf(y)=y\nmin(0)=1\ny(0)=2\n",
         "[f(min)=min - 1|1|] [f(y)=y|2|] (, )"},
        {"an implicit row behind explicit ones", "f(x) = x\na = 1\nf(y) = y\nx(0)=1\ny(0)=2\n",
         "[f(x) = x|1|] [a = 1|n.a.|] [f(y) = y|2|] (, )"},
        {"the same cut short", "a = 1\nf(y) = y\n", "[a = 1|n.a.|] [f(y) = y|n.a.|] (, )"},
        {"a row without a right side", "b = 1\na #x(0)=1\nc = 2\n", "[b = 1|n.a.|] [a|n.a.|x(0)=1] [c = 2|n.a.|] (, )"},
        {"all behind the first = is the guess", "f(x) = x\nx(0)=1=2\n", "[f(x) = x|1=2|] (, )"},
        {"blank lines are no rows", "a = 1\n\n  \nb = 2\n\n", "[a = 1|n.a.|] [b = 2|n.a.|] (, )"},
    };
    for (const auto& [name, text, expected] : files)
        EXPECT_EQ(shown(read_nle("T |KVRVER05_1\n" + std::string(text))), "\"T\" safenewt " + std::string(expected))
            << name;
}

TEST(NleFile, RefusesWhatIsNoProblem)
{
    for (const char* text : {"", "title", "title\n", "T\nd(x) = 1\n", "T\nx + 1\n", "T\n2x = 1\n", "T\na b = 1\n",
                             "T\n\na = 1\n", "T\nf(x) x\n"})
        EXPECT_FALSE(read_nle(text)) << text;
    for (const char* bounds : {"x(min)=1e999, x(max)=2\n", "x(min)=1, x(max)=-1e999\n"})
        EXPECT_FALSE(read_nle("T\nf(x) = x\n" + std::string(bounds))) << bounds;
}

TEST(NleFile, AFileCutAnywhereReadsOrIsRefused)
{
    const std::string text = "T |KVRVER05_3\r\nf(x) = x*y #c\r\nf(y) = y #\r\na = 1 #\r\nx(0)=1 ap\r\ny(0)=2 p\r\n";
    const std::size_t second_row_ends = text.find(" #\r\na");
    for (std::size_t length = 0; length <= text.size(); ++length) {
        SCOPED_TRACE(length);
        const std::optional<nle_content> read = read_nle(text.substr(0, length));
        if (length < text.find("f(x) =") + 6) {
            EXPECT_FALSE(read);
        } else if (length >= second_row_ends) {
            ASSERT_TRUE(read);
            EXPECT_EQ(read->rows[1].equation, "f(y) = y");
        }
    }
}

std::string any_comment()
{
    const auto piece = rc::gen::element<std::string>(" ", "#", "x(0)=1", "y(min)=2", "(max)=", "word", "=", "{\\",
                                                     "\xC3\xA9", "f(x) = 1");
    std::string comment;
    for (int pieces = *rc::gen::inRange(0, 4); pieces > 0; --pieces)
        comment += *piece;
    return comment;
}

nle_content any_content()
{
    std::vector<std::string> names = {"x", "y", "f", "min", "max", "x1", "KVRVER05_", "a_b"};
    const auto expression = rc::gen::element<std::string>("x^2 - 2", "1", "if (0)==y then 1 else 2", "(0)=<1",
                                                          "min*max", "sin(x) + f", "f(0)==1");
    const auto guess = rc::gen::element<std::string>("1", "-2.5", "1E-07", "3 p", "4 ap", "0 p");
    const auto bound = rc::gen::inRange(-50, 50);
    nle_content content;
    content.title =
        *rc::gen::element<std::string>("", "T", "a # b", "x |KVRVER05_2 y", "f(x) = 1", "|", "\xC3\xA9t\xC3\xA9");
    content.method = static_cast<nle_method>(*rc::gen::inRange(0, 4));
    const int count = *rc::gen::inRange(1, 9);
    int implicit = 0;
    for (int k = 0; k < count; ++k) {
        const std::string name = names[static_cast<std::size_t>(k)];
        const bool is_implicit_row = *rc::gen::arbitrary<bool>();
        implicit += is_implicit_row ? 1 : 0;
        content.rows.push_back(is_implicit_row ? implicit_row(name, *expression, *guess)
                                               : explicit_row(name, *expression));
        content.rows.back().comment = any_comment();
    }
    if (implicit == 1) {
        content.lower_bound = std::to_string(*bound);
        content.upper_bound = std::to_string(*bound);
    }
    return content;
}

/// What a file keeps of a content: implicit rows come first, a single one's guess is the middle.
nle_content kept_by_file(nle_content content)
{
    std::stable_partition(content.rows.begin(), content.rows.end(),
                          [](const equation_row& row) { return is_implicit(row.equation, nle_row_form); });
    if (!content.lower_bound.empty()) {
        const int doubled = std::stoi(content.lower_bound) + std::stoi(content.upper_bound);
        std::string middle = std::to_string(std::abs(doubled) / 2);
        if (doubled % 2 != 0) middle += ".5";
        content.rows.front().guess = doubled < 0 ? "-" + middle : middle;
    }
    return content;
}

TEST(NleFile, WhatWasWrittenReadsBack)
{
    EXPECT_TRUE(rc::check("the current format keeps everything", [] {
        const nle_content content = any_content();
        const std::optional<nle_content> read = read_nle(write_nle(content));
        RC_ASSERT(read.has_value());
        RC_ASSERT(*read == kept_by_file(content));
        RC_ASSERT(write_nle(*read) == write_nle(content));
    }));
    EXPECT_TRUE(rc::check("the older format keeps all but comments and method", [] {
        nle_content content = any_content();
        if (content.title.find("KVRVER") != std::string::npos) content.title.clear();
        const std::optional<nle_content> read = read_nle(write_nle(content, true), content.method);
        for (equation_row& row : content.rows)
            row.comment.clear();
        RC_ASSERT(read == std::optional(kept_by_file(content)));
    }));
}

TEST(NleFile, ArbitraryBytesAreReadOrRefused)
{
    EXPECT_TRUE(rc::check("reading never fails badly, and settles after one round", [] {
        const auto piece = rc::gen::element<std::string>("T", "\n", "\r", "\r\n", "f(", "x", ")", " = ", "=", "#",
                                                         "(0)=", "(min)=", "(max)=", "1e999", "-1", "\xFF",
                                                         std::string(1, '\0'), " |KVRVER05_", "9", " ", "\t");
        std::string bytes;
        for (int pieces = *rc::gen::inRange(0, 40); pieces > 0; --pieces)
            bytes += *piece;
        const std::optional<nle_content> first = read_nle(to_utf8(bytes));
        if (!first) return;
        const std::optional<nle_content> second = read_nle(write_nle(*first));
        if (!second) return;
        RC_ASSERT(second->rows.size() == first->rows.size());
    }));
}

} // namespace
} // namespace kelvarin
