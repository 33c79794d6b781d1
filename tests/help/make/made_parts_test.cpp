// SPDX-License-Identifier: MIT
#include "help/make/made_parts.h"

#include "help/make/man_page.h"
#include "kinds/kinds.h"
#include "shell/document/problem_kind.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <set>

namespace kelvarin
{
namespace
{

namespace fs = std::filesystem;

std::string text_of(const fs::path& path)
{
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

std::vector<fs::path> pages()
{
    std::vector<fs::path> found;
    for (const fs::directory_entry& file : fs::directory_iterator(KELVARIN_HELP))
        if (file.path().extension() == ".md") found.push_back(file.path());
    return found;
}

std::string all_pages()
{
    std::string text;
    for (const fs::path& page : pages())
        text += text_of(page);
    return text;
}

// Stale pages are made anew by: cmake --build BUILD --target kelvarin-help.
TEST(MadeParts, EachPageSaysWhatTheProgramSaysNow)
{
    std::set<std::string> figures;
    for (const fs::path& path : pages()) {
        const made_page page = make_page(text_of(path), KELVARIN_EXAMPLES);
        EXPECT_EQ(page.markdown, text_of(path)) << path.filename();
        for (const auto& [name, figure] : page.figures) {
            EXPECT_TRUE(figures.insert(name).second) << name << " is made twice";
            EXPECT_EQ(figure, text_of(fs::path(KELVARIN_HELP) / "figures" / name)) << path.filename();
        }
    }
    for (const fs::directory_entry& file : fs::directory_iterator(fs::path(KELVARIN_HELP) / "figures"))
        EXPECT_TRUE(figures.contains(file.path().filename())) << file.path() << " is on no page";
}

TEST(ManPages, AreMadeOfThePagesOfTheHelp)
{
    std::map<std::string, std::string> help;
    for (const fs::path& path : pages())
        help[path.stem()] = text_of(path);
    for (const auto& [name, text] : man_pages(help))
        EXPECT_EQ(text, text_of(fs::path(KELVARIN_HELP) / ".." / "man" / name)) << name;
    // REUSE-IgnoreStart
    EXPECT_EQ(
        man_page_of("# T\n\nOne `a-b`.\n\n## Two\n- x\n| a | b |\n|---|---|\n| `|` | c |\n```\n.x\\y\n```\n",
                    {.name = "n", .section = 5, .summary = "s", .see_also = "o(1)"}),
        ".\\\" SPDX-License-Identifier: MIT\n.TH N 5 \"\" \"Kelvarin 5.0.0\"\n.SH NAME\nn \\- s\n.SH DESCRIPTION\n"
        ".PP\nOne a\\-b.\n.SH TWO\n.IP \\(bu 2\nx\n.TP\n.B |\nc\n.PP\n.nf\n\\&.x\\ey\n.fi\n"
        ".SH SEE ALSO\no(1)\n");
    // REUSE-IgnoreEnd
}

TEST(MadeParts, AreMadeFromTheTables)
{
    const std::string page = "# T\n<!-- made: settings cnle -->\nold\n<!-- end -->\nbehind\n"
                             "<!-- made: run --format text --eval 'x = 2*3' \"x+1\" -->\n<!-- end -->\n";
    const std::string made = make_page(page, KELVARIN_EXAMPLES).markdown;
    EXPECT_THAT(made, testing::HasSubstr("| `cnle_maxiter` | 150 | whole, 10 to 300 |"));
    EXPECT_THAT(made, testing::Not(testing::HasSubstr("old")));
    EXPECT_THAT(made, testing::HasSubstr("$ kelvarin-solve --format text --eval 'x = 2*3' \"x+1\"\n6\n7\n"));
    EXPECT_EQ(make_page(made, KELVARIN_EXAMPLES).markdown, made);
    for (const char* wrong :
         {"<!-- made: nonsense -->\n<!-- end -->\n", "<!-- made: operators -->\n",
          "<!-- made: method nle no -->\n<!-- end -->\n", "<!-- made: figure a -->\n<!-- end -->\n"})
        EXPECT_THROW(make_page(wrong, KELVARIN_EXAMPLES), std::runtime_error) << wrong;
}

TEST(HelpPages, SpeakOfEachMethodAndEachExample)
{
    const std::string text = all_pages();
    for (const problem_kind* kind : problem_kinds())
        for (const problem_method& method : kind->methods)
            EXPECT_THAT(text, testing::HasSubstr("<!-- made: method " + std::string(kind->key) + " " + method.name));
    for (const fs::directory_entry& file : fs::directory_iterator(KELVARIN_EXAMPLES))
        if (file.path().extension() == ".kvr" || file.path().extension() == ".kvg") {
            EXPECT_THAT(text, testing::HasSubstr("../../examples/" + file.path().filename().string()));
        }
}

} // namespace
} // namespace kelvarin
