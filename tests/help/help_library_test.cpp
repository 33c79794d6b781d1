// SPDX-License-Identifier: MIT
#include "help/help_context.h"
#include "help/help_library.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace kelvarin
{
namespace
{

help_library small_library()
{
    return help_library({
        read_help_page("contents",
                       "# Contents\n\n- [Graphs](graphs.md)\n  - [Zoom](graphs.md#the-zoom-what-it-does)\n- Others\n"),
        read_help_page("graphs", "# Graphs\n<!-- made -->\nCurves and `axes*` with a [link](a.md).\n\n"
                                 "## The zoom: what it does\n\nThe **wheel** zooms.\n```\n# no heading [x](y)\n```\n"
                                 "| a | b |\n|---|---|\n| wheel | pan |\n"),
        read_help_page("reports", "# Reports\n\nGraphs are not reports.\n"),
    });
}

std::vector<std::string> found(const help_library& library, const char* words)
{
    std::vector<std::string> targets;
    for (const help_hit& hit : library.search(words))
        targets.push_back(hit.target());
    return targets;
}

TEST(HelpPage, IsReadWithSectionsAndLinksOutsideOfCode)
{
    const help_library library = small_library();
    const help_page& page = *library.page_of("graphs#anything");
    EXPECT_EQ(page.title, "Graphs");
    EXPECT_EQ(page.markdown.find("<!--"), std::string::npos);
    ASSERT_EQ(page.sections.size(), 2U);
    EXPECT_EQ(page.sections[0].text, "Curves and axes* with a link.\n\n");
    EXPECT_EQ(page.sections[1].heading.anchor, "the-zoom-what-it-does");
    ASSERT_EQ(page.links.size(), 1U);
    EXPECT_EQ(page.links[0].target, "a.md");
    EXPECT_TRUE(library.has("graphs#the-zoom-what-it-does"));
    EXPECT_FALSE(library.has("graphs#no-heading-x-y"));
}

TEST(HelpLibrary, ReadsTheContentsWithTheirDepths)
{
    const help_library library = small_library();
    ASSERT_EQ(library.contents().size(), 3U);
    EXPECT_EQ(library.contents()[1].depth, 1);
    EXPECT_EQ(library.contents()[1].caption, "Zoom");
    EXPECT_EQ(library.contents()[1].target, "graphs#the-zoom-what-it-does");
    EXPECT_EQ(library.contents()[2].target, "");
}

TEST(HelpLibrary, FindsSectionsThatHaveAllWordsTheBestFirst)
{
    const help_library library = small_library();
    using testing::ElementsAre;
    // As a heading of its own page, as the title of a section's page, in the text.
    EXPECT_THAT(found(library, "GRAPHS"), ElementsAre("graphs", "graphs#the-zoom-what-it-does", "reports"));
    EXPECT_THAT(found(library, " wheel  zoom "), ElementsAre("graphs#the-zoom-what-it-does"));
    EXPECT_THAT(found(library, "wheel reports"), ElementsAre());
    EXPECT_THAT(found(library, "  "), ElementsAre());
    EXPECT_EQ(library.search("wheel").at(0).excerpt, "The wheel zooms. # no heading [x](y) a b wheel pan ");
}

TEST(HelpContext, TheInnermostNameWithAPlaceDecides)
{
    const auto target = [](std::vector<std::string> names) { return std::string(help_target_of(names)); };
    EXPECT_EQ(target({"cmbMethod", "frmDEQ", "frmMDIKelvarin"}), "methods-differential");
    EXPECT_EQ(target({"cmbMethod", "frmNLE", "frmMDIKelvarin"}), "methods-nonlinear");
    EXPECT_EQ(target({"lblTitle", "frmNLE", "frmMDIKelvarin"}), "nonlinear");
    EXPECT_EQ(target({"txtGuess", "frmNleNE", "frmNLE"}), "nonlinear#guesses-and-ranges");
    EXPECT_EQ(target({"unheard_of"}), "contents");
    EXPECT_EQ(target({}), "contents");
}

} // namespace
} // namespace kelvarin
