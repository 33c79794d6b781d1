// SPDX-License-Identifier: MIT
// The pages as they stand in the repository: each link leads somewhere, each page is in the contents.
#include "help/help_context.h"
#include "help/help_library.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <set>
#include <string>
#include <vector>

namespace kelvarin
{
namespace
{

namespace fs = std::filesystem;

help_library pages_of_the_program()
{
    std::vector<help_page> pages;
    for (const fs::directory_entry& file : fs::directory_iterator(KELVARIN_HELP)) {
        if (file.path().extension() != ".md") continue;
        std::ifstream text(file.path());
        pages.push_back(read_help_page(file.path().stem(), std::string{std::istreambuf_iterator<char>(text), {}}));
    }
    return help_library(std::move(pages));
}

/// "graphs.md#zoom" on page "x" as "graphs#zoom", "#zoom" as "x#zoom"; empty if it is no page.
std::string target_on(const help_page& page, const std::string& link)
{
    if (link.starts_with('#')) return page.name + link;
    const std::size_t end = link.find(".md");
    return end == std::string::npos || link.find('/') != std::string::npos ? ""
                                                                           : link.substr(0, end) + link.substr(end + 3);
}

TEST(HelpPages, EachLinkLeadsToAPageAHeadingAFigureOrAnExample)
{
    const help_library library = pages_of_the_program();
    for (const help_page& page : library.pages())
        for (const help_link& link : page.links) {
            const std::string target = target_on(page, link.target);
            if (!target.empty())
                EXPECT_TRUE(library.has(target)) << page.name << ": " << link.target;
            else
                EXPECT_TRUE(fs::exists(fs::path(KELVARIN_HELP) / link.target)) << page.name << ": " << link.target;
        }
}

TEST(HelpPages, EachIsInTheContentsAndHasATitle)
{
    const help_library library = pages_of_the_program();
    std::set<std::string> listed{help_contents_page};
    for (const help_entry& entry : library.contents()) {
        EXPECT_TRUE(entry.target.empty() || library.has(entry.target)) << entry.target;
        listed.insert(entry.target.substr(0, entry.target.find('#')));
    }
    for (const help_page& page : library.pages()) {
        EXPECT_TRUE(listed.contains(page.name)) << page.name;
        EXPECT_FALSE(page.title.empty()) << page.name;
    }
}

TEST(HelpPages, EachWindowAndControlHasAPlace)
{
    const help_library library = pages_of_the_program();
    for (const help_place& place : help_places())
        EXPECT_TRUE(library.has(place.target)) << place.window << " " << place.control << ": " << place.target;
}

} // namespace
} // namespace kelvarin
