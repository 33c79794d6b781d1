// SPDX-License-Identifier: MIT
#include "shell/report/rich_text.h"

#include "platform/utf8.h"
#include "support/table.h"

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <string>
#include <vector>

namespace kelvarin
{

using std::string_literals::operator""s;

namespace
{

std::string plain(std::string_view document)
{
    return plain_text_of(read_rich_text(document));
}

} // namespace

TEST(RichTextWriter, EscapesWhatTheFormatGivesAMeaning)
{
    // The numbers of \u are signed: U+FFFD is -3, and U+1F600 is the pair D83D DE00.
    for (const auto& [text, expected] :
         test::table<std::string, const char*>{{"a {b}\\c", "a \\{b\\}\\\\c"},
                                               {"\xC3\xA9", "\\u233?"},
                                               {"\xE2\x82\xAC"
                                                "5",
                                                "\\u8364?5"},
                                               {"\xEF\xBF\xBD", "\\u-3?"},
                                               {"\xF0\x9F\x98\x80", "\\u-10179?\\u-8704?"},
                                               {"a\r\nb\tc\0d\x7F"s, "a  b c d "},
                                               {"\xE9\xC3", "\\u233?\\u195?"},
                                               {"", ""}})
        EXPECT_EQ(escape_rich_text(text), expected) << expected;
}

TEST(RichTextWriter, WritesHeadAndDocument)
{
    EXPECT_EQ(report_head(" A {title} ", {2026, 3, 7}),
              "{\\b\\cf2\\f5\\fs24\\ul KELVARIN Results}\\par {\\cf2\\f5\\fs20\\b A "
              "\\{title\\}}{\\cf2\\f5\\fs16\\ 03-07-2026,   Rev5.0.0 }\\par ");
    EXPECT_EQ(report_head("", {2026, 12, 31}), "{\\b\\cf2\\f5\\fs24\\ul KELVARIN Results}\\par {\\cf2\\f5\\fs20\\b }"
                                               "{\\cf2\\f5\\fs16\\ 12-31-2026,   Rev5.0.0 }\\par ");
    const std::string document = rich_text_document("body");
    EXPECT_TRUE(document.starts_with("{\\rtf1\\ansi\\deff0\\deftab720{\\fonttbl{\\f0\\fnil MS Sans Serif;}"));
    EXPECT_TRUE(document.ends_with("\\red254\\green0\\blue0;}\\plain\\f3\\fs18body\\par }"));
    EXPECT_EQ(plain(document), "body\n");
}

TEST(RichTextReader, ReadsAReportHeadAsStyledLines)
{
    const std::vector<styled_line> lines = read_rich_text(rich_text_document(report_head("T", {2026, 1, 2})));
    const std::vector<styled_line> expected = {
        {{"KELVARIN Results", true, false, true, {150, 0, 0}, "Times New Roman", font_class::serif, 24}},
        {{"T", true, false, false, {150, 0, 0}, "Times New Roman", font_class::serif, 20},
         {" 01-02-2026,   Rev5.0.0 ", false, false, false, {150, 0, 0}, "Times New Roman", font_class::serif, 16}},
        {}};
    EXPECT_EQ(lines, expected);
}

TEST(RichTextReader, ReadsItsSubset)
{
    using documents = std::vector<std::string>;
    const test::table<std::string, documents> subset = {
        {"a\nb\n", {"a\\par b", "a\\\nb", "a\\\r\nb"}},
        {"a\n", {"a\\par "}},
        {"a\nb\n\nc\n", {"a\\line b\\par\\par c"}},
        {"a\tb\t\n", {"a\\tab b\\tab"}},
        {" [1] x\n", {"{\\f6  [1] }x"}},
        {" x\n", {"\\f6\\ x", "\\f6  x"}},
        {"x\n", {"\\f6x"}},
        {"abc\n", {"a\r\nb\nc"}},
        {"{}\\\n", {"\\{\\}\\\\"}},
        {"\xC3\xA9\xC3\xA9\n", {"\\'e9\\'E9", "\xE9\xC3\xA9"}},
        {"\xE2\x80\x99\n", {"\\'92"}},
        {"zz4\n", {"\\'zz\\'4"}},
        {"\xC3\xA9\n", {"\\u233 x"}},
        {"\xE2\x82\xACx\n", {"\\u8364\\'80x"}},
        {"\xF0\x9F\x98\x80\n", {"\\u-10179?\\u-8704?", "\\u55357 ?\\u56832 ?"}},
        // Halves of pairs on their own.
        {"\xEF\xBF\xBDx\n", {"\\u-10179?x", "\\u-8704?x"}},
        {"\xEF\xBF\xBD\n", {"\\u-10179?", "\\u-3?"}},
        // How long the replacement is belongs to the group; braces end it.
        {"\xC3\xA9x\n", {"\\u233?x", "\\uc2\\u233\\'41Bx", "\\u233\\b x", "\\uc1\\u233\\{x"}},
        {"\xC3\xA9x\xC3\xA9x\n", {"{\\uc0\\u233x}\\u233?x"}},
        {"\xC3\xA9y\n", {"\\uc3{\\u233 a}y"}},
        {"x\n",
         {"{\\fonttbl{\\f0 A;}{\\f1{\\*\\fname B;}C;}}{\\colortbl\\red0;}x", "{\\*\\unknown {a}\\} b}x",
          "{\\info{\\title t}}{\\stylesheet s}{\\header h}x", "{\\pict\\bin3 }}}ff}x"}},
        {"ab\n", {"a\\bin4 {{{{b", "a\\bin-1 b"}},
        {"xy\n", {"{\\footnote n}{\\field{\\fldinst HYPERLINK}{\\fldrslt x}}y"}},
        {"1\t\n2\xE2\x80\x82\n", {"1\\nestcell\\nestrow 2\\enspace"}},
        {"x\xC2\xA0y\xE2\x80\x91zu\xE2\x80\x94v\n", {"\\unknown5 x\\~y\\_z\\-u\\:\\emdash v"}},
        {"1\t2\t\n3\n", {"1\\cell 2\\cell\\row 3"}},
        // Cut short, or with groups that do not match.
        {"", {"", "{", "{\\fonttbl a", "{\\*", "{\\fonttbl\\"}},
        {"a\n", {"a\\bin99 b", "a\\", "a\\b", "a\\'", "\\f99999999999999999999 a"}},
        {"ab\n", {"}a}b", "{a{b", "a\0b\x1F"s}},
        {"a?\n", {"a\\u?"}},
    };
    for (const auto& [expected, read] : subset)
        for (const std::string& document : read)
            EXPECT_EQ(plain(document), expected) << document;
}

TEST(RichTextReader, FollowsStylesThroughGroups)
{
    const std::vector<styled_line> expected = {
        {{"a", true, false, false, {}, "Arial", font_class::sans, 18},
         {"b", true, true, false, {254, 0, 0}, "Courier New", font_class::monospace, 18},
         {"c", true, false, false, {}, "Arial", font_class::sans, 18},
         {"d", false, false, true, {}, "Arial", font_class::sans, 40},
         {"e", false, false, false, {}, "Arial", font_class::sans, 18}}};
    EXPECT_EQ(read_rich_text("{\\b a{\\i\\cf7\\f6 b}c\\b0\\ul\\fs40 d\\ulnone\\plain e}"), expected);
    const std::vector<styled_line> joined = {{{"abc", true}}};
    EXPECT_EQ(read_rich_text("\\b a{\\b b}{\\i\\b\\i0 c}"), joined) << "neighbours of one style are one run";
    const std::vector<styled_line> fonts = {{{"ab", false, false, false, {}, "Times New Roman", font_class::serif}}};
    EXPECT_EQ(read_rich_text("\\f4 a\\f5 b"), fonts) << "two numbers of one font are one style";
    const std::vector<styled_line> clamped = {
        {{"x", false, false, false, {}, "MS Sans Serif", font_class::sans, 1}, {"y", true}}};
    EXPECT_EQ(read_rich_text("{\\cf-5\\f-1\\fs0 x}\\cf99\\f99\\b y"), clamped);
    EXPECT_EQ(plain("a{\\v hidden\\u233?\\'e9}b\\deleted c\\deleted0 d"), "abd\n");
}

TEST(RichTextReader, NestsWithoutLimit)
{
    constexpr std::size_t depth = 2000000;
    const std::string opened(depth, '{');
    const std::string closed(depth, '}');
    EXPECT_EQ(read_rich_text("a{\\b b" + opened + closed + "}c"),
              (std::vector<styled_line>{{{"a"}, {"b", true}, {"c"}}}));
    EXPECT_EQ(plain("{\\*" + opened + "a" + closed + "}b"), "b\n");
    EXPECT_EQ(plain(opened + "a"), "a\n");
}

RC_GTEST_PROP(RichText, GivesAnyTextBackAsItWasWritten, ())
{
    const auto letter =
        rc::gen::oneOf(rc::gen::elementOf(std::u32string(U"\\{}?'u0123 -*")), rc::gen::inRange<char32_t>(0x20, 0x7F),
                       rc::gen::inRange<char32_t>(0xA0, 0xD800), rc::gen::inRange<char32_t>(0xE000, 0x110000));
    std::string text;
    for (const char32_t code : *rc::gen::container<std::vector<char32_t>>(letter))
        append_utf8(text, code);
    RC_ASSERT(plain(rich_text_document("\\par " + escape_rich_text(text) + "\\par ")) == "\n" + text + "\n\n");
    RC_ASSERT(plain(rich_text_document("{\\f6  " + escape_rich_text(text) + "}.")) == " " + text + ".\n");
    RC_ASSERT(is_utf8(escape_rich_text(text)));
}

RC_GTEST_PROP(RichText, SurvivesAnyBytes, ())
{
    const auto piece = rc::gen::oneOf(
        rc::gen::map(rc::gen::arbitrary<char>(), [](char byte) { return std::string(1, byte); }),
        rc::gen::elementOf(std::vector<std::string>{
            "{",     "}",          "\\",  "\\par ",      "\\u",      "\\uc9 ", "\\u-10179?", "\\bin", "99999999999",
            "-",     " ",          "\\'", "\\*",         "\\pict",   "\\fs",   "\\plain",    "x",     "{\\fonttbl",
            "\\f1 ", "\\fmodern ", ";}",  "{\\colortbl", "\\red200", "\\cf1 ", "\\rtf1"}));
    std::string document;
    for (const std::string& each : *rc::gen::container<std::vector<std::string>>(piece))
        document += each;
    const std::vector<styled_line> lines = read_rich_text(document);
    RC_ASSERT(read_rich_text(rich_text_of(lines)) == lines);
    for (const styled_line& line : lines) {
        for (const styled_run& run : line) {
            RC_ASSERT(is_utf8(run.text));
            RC_ASSERT(run.text.find_first_of("\r\n") == std::string::npos);
            RC_ASSERT(run.size > 0);
        }
    }
    RC_ASSERT(is_utf8(escape_rich_text(document)));
}

} // namespace kelvarin
