// SPDX-License-Identifier: MIT
#include "platform/utf8.h"
#include "shell/report/rich_text.h"
#include "support/golden.h"
#include "support/table.h"

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <fstream>
#include <iterator>
#include <string>
#include <utility>
#include <vector>

namespace kelvarin
{

/// So that a failed comparison tells the style.
void PrintTo(const styled_run& run, std::ostream* stream)
{
    *stream << '"' << run.text << '"' << (run.bold ? " bold" : "") << (run.italic ? " italic" : "")
            << (run.underline ? " underline" : "") << " (" << int{run.colour.red} << ' ' << int{run.colour.green} << ' '
            << int{run.colour.blue} << ") " << run.font << '/' << static_cast<int>(run.family) << ' ' << run.size;
}

namespace
{

std::string sample(const std::string& name)
{
    std::ifstream file(std::string(KELVARIN_TEST_DATA) + "/rich_text/" + name, std::ios::binary);
    EXPECT_TRUE(file) << name;
    return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

/// What a browser shows of a document's body: the texts without tags, entities as letters.
std::string shown_html(const std::string& html)
{
    std::string shown;
    const std::size_t body = html.find("<body>\n") + 7;
    for (std::size_t at = body; at < html.find("</body>"); ++at) {
        if (html[at] == '<') {
            at = html.find('>', at);
            continue;
        }
        if (html[at] != '&') {
            shown += html[at];
            continue;
        }
        const std::size_t end = html.find(';', at);
        const std::string entity = html.substr(at + 1, end - at - 1);
        shown += entity == "amp" ? '&' : entity == "lt" ? '<' : entity == "gt" ? '>' : entity == "quot" ? '"' : '?';
        at = end;
    }
    return shown;
}

/// Lines as a reader gives them: no empty runs, neighbours in different styles, classes that fit the fonts.
std::vector<styled_line> random_lines()
{
    static const std::vector<std::pair<std::string, font_class>> fonts = {
        {"Arial", font_class::sans},
        {"Courier New", font_class::monospace},
        {"Odd; {name}\\", font_class::serif},
        {"Plain", font_class::monospace},
        {"\xC3\x89toile \xF0\x9F\x98\x80", font_class::sans}};
    const auto text =
        rc::gen::nonEmpty(rc::gen::container<std::string>(rc::gen::elementOf(std::string(" \t{}\\;az&<'\""))));
    std::vector<styled_line> lines;
    for (int count = *rc::gen::inRange(0, 5); count > 0; --count) {
        styled_line line;
        for (int runs = *rc::gen::inRange(0, 4); runs > 0; --runs) {
            const auto& [font, family] = *rc::gen::elementOf(fonts);
            styled_run run = {*text,
                              *rc::gen::arbitrary<bool>(),
                              *rc::gen::arbitrary<bool>(),
                              *rc::gen::arbitrary<bool>(),
                              {*rc::gen::arbitrary<std::uint8_t>(), *rc::gen::element<std::uint8_t>(0, 255), 0},
                              font,
                              family,
                              *rc::gen::inRange(1, 60)};
            styled_run same_text = line.empty() ? styled_run() : line.back();
            same_text.text = run.text;
            if (line.empty() || !(same_text == run)) line.push_back(std::move(run));
        }
        lines.push_back(std::move(line));
    }
    return lines;
}

} // namespace

RC_GTEST_PROP(StyledText, ComesBackFromRichTextAsItWas, ())
{
    const std::vector<styled_line> lines = random_lines();
    RC_ASSERT(read_rich_text(rich_text_of(lines)) == lines);
}

RC_GTEST_PROP(StyledText, ShowsTheSameTextAsHtml, ())
{
    const std::vector<styled_line> lines = random_lines();
    RC_ASSERT(shown_html(html_of(lines)) == plain_text_of(lines));
}

TEST(StyledText, HtmlIsAWholeDocumentWithFontsAndColours)
{
    const std::vector<styled_line> lines = {
        {{"a<b ", true, true, true, {0, 128, 160}, "Times'\"New", font_class::serif, 21}, {"c", false}},
        {},
        {{"1\t2", false, false, false, {}, "Courier New", font_class::monospace, 18}}};
    test::expect_golden("rich_text/document.html", html_of(lines, "Q & A"));
}

TEST(StyledText, PlainTextBecomesLinesInFixedWidth)
{
    const auto courier = [](const char* text) {
        return styled_run{text, false, false, false, {}, "Courier New", font_class::monospace, 18};
    };
    EXPECT_EQ(styled_plain_text("a\tb\r\n\r\n\x01{c}\xE9"),
              (std::vector<styled_line>{{courier("a\tb")}, {}, {courier(" {c}\xC3\xA9")}}));
    EXPECT_EQ(styled_plain_text(""), std::vector<styled_line>());
}

TEST(StyledText, FontsFallBackToTheClassThatTheirNamesTell)
{
    const test::table<const char*, font_class> cases = {
        {"Times New Roman", font_class::serif}, {"Liberation Serif", font_class::serif},
        {"MS Sans Serif", font_class::sans},    {"DejaVu Sans Mono", font_class::monospace},
        {"COURIER", font_class::monospace},     {"Wingdings", font_class::sans}};
    for (const auto& [name, expected] : cases)
        EXPECT_EQ(class_of_font(name, font_class::sans), expected) << name;
    EXPECT_EQ(class_of_font("Wingdings", font_class::serif), font_class::serif);
}

TEST(StyledText, ReadsTablesOfFontsAndColours)
{
    const std::vector<styled_line> expected = {
        {{"a", false, false, false, {1, 2, 3}, "Foo Bar", font_class::monospace, 24},
         {"b", false, false, false, {}, "Caf\xC3\xA9 \xC3\xA9;", font_class::serif, 24},
         {"c", false, false, false, {255, 0, 0}, "Baz", font_class::monospace, 24},
         {"d", false, false, false, {}, "Arial", font_class::sans, 24},
         {"e", false, false, false, {}, "Foo Bar", font_class::monospace, 24}}};
    EXPECT_EQ(read_rich_text("{\\rtf1\\deff40{\\fonttbl\n{\\f40\\fmodern\\fprq1{\\*\\panose 02}Foo Bar{\\*\\falt X;};}"
                             "{\\f7\\froman Caf\\'e9 \\u233\\'e9\\'3b;}\\f2\\fnil\\fprq1 Baz;}"
                             "{\\colortbl;\\red1\\green2\\blue3;\\red999\\green-4;}"
                             "\\cf1 a\\f7\\cf0 b\\f2\\cf2 c\\f99\\cf3 d\\plain e}"),
              expected);
}

// Written by hand after the form in which word processors write the same text.
TEST(StyledText, ReadsWhatWordProcessorsWrite)
{
    for (const std::string name : {"libreoffice", "word"})
        test::expect_golden("../data/rich_text/" + name + ".txt", plain_text_of(read_rich_text(sample(name + ".rtf"))));
}

TEST(StyledText, ReadsTheStylesThatWordProcessorsWrite)
{
    const std::vector<styled_line> writer = read_rich_text(sample("libreoffice.rtf"));
    ASSERT_EQ(writer.size(), 7u);
    EXPECT_EQ(writer[0],
              (styled_line{{"Heat balance", true, false, false, {}, "Liberation Sans", font_class::sans, 36}}));
    ASSERT_EQ(writer[1].size(), 3u);
    EXPECT_EQ(
        writer[1][1],
        (styled_run{"12\xE2\x80\xAF%", false, true, true, {201, 33, 30}, "Liberation Serif", font_class::serif, 24}));
    EXPECT_EQ(writer[6],
              (styled_line{{"caf\xC3\xA9", false, false, false, {}, "Liberation Mono", font_class::monospace, 20}}));

    const std::vector<styled_line> word = read_rich_text(sample("word.rtf"));
    ASSERT_EQ(word.size(), 6u);
    EXPECT_EQ(
        word[0],
        (styled_line{{"Report of the week", true, false, true, {47, 84, 150}, "Calibri Light", font_class::sans, 32}}));
    EXPECT_EQ(word[3], (styled_line{{"Link: ", false, false, false, {}, "Calibri", font_class::sans, 22},
                                    {"site", false, false, true, {5, 99, 193}, "Calibri", font_class::sans, 22},
                                    {" end", false, false, false, {}, "Calibri", font_class::sans, 22}}));
}

TEST(StyledText, ADocumentCutAnywhereIsReadAsFarAsItGoes)
{
    for (const char* name : {"libreoffice.rtf", "word.rtf"}) {
        const std::string document = sample(name);
        for (std::size_t length = 0; length < document.size(); length += 7) {
            const std::vector<styled_line> lines = read_rich_text(std::string_view(document).substr(0, length));
            EXPECT_TRUE(is_utf8(plain_text_of(lines)));
            EXPECT_EQ(read_rich_text(rich_text_of(lines)), lines) << name << " cut at " << length;
        }
    }
}

} // namespace kelvarin
