// SPDX-License-Identifier: MIT
#include "opt/opt_analysis.h"
#include "shell/report/rich_text.h"
#include "support/opt_problems.h"
#include "support/table.h"

#include <gtest/gtest.h>

namespace kelvarin
{
namespace
{

using panels = std::array<std::string, 3>;
using test::target_of;

TEST(OptAnalysis, PanelsLightAndMessagesOfEachState)
{
    const std::string none = "Auxiliary Equations: 0";
    const test::table<opt_content, bool, panels, std::vector<std::string>> rows = {
        {target_of("", {}),
         false,
         {"No Variables entered.", none, ""},
         {"Target Function Error.\rSyntax Error: No expression entered."}},
        {target_of("3", {"a = 1"}),
         false,
         {"Initialized Target Variables: 0", "Auxiliary Equations: 1", ""},
         {"Initialized Target Variables: 0"}},
        {target_of("x^2", {"x (0) = 2"}), true, {"Initialized Target Variables: 1", none, ""}, {}},
        // Unused or defined twice is no reason to be red.
        {target_of("3", {"x(0) = 2", "x(0) = 3", "x = 1"}),
         true,
         {"Initialized Target Variables: 1", "Auxiliary Equations: 1", ""},
         {}},
        {target_of("x+u", {"x(0)=2"}),
         false,
         {"Initialized Target Variables: 1", none, "Undefined Variable: u"},
         {"Undefined Variable: u"}},
        // Those of rows first.
        {target_of("v+x+u", {"x(0)=2", "a = w*u"}),
         false,
         {"Initialized Target Variables: 1", "Auxiliary Equations: 1", "Undefined Variables: w, u, v"},
         {"Undefined Variables: w, u, v"}},
        {target_of("if x < 1 then x else 2*x", {"x(0)=2", "a = (0)==x"}),
         true,
         {"Initialized Target Variables: 1", "Auxiliary Equations: 1", ""},
         {}},
        // The rows behind a refused one are not counted.
        {target_of("x", {"x(0)=2", "a = 1+", "b = 1", "y(0)=1"}),
         false,
         {"Initialized Target Variables: 1", none, ""},
         {"Error in Equation 2: Syntax Error: extra operator at the end of the expression; +"}},
        {target_of("x*", {"x(0)=2", "b"}),
         false,
         {"Initialized Target Variables: 1", none, ""},
         {"Error in Equation 2: Syntax Error: No expression entered.",
          "Target Function Error.\rSyntax Error: extra operator at the end of the expression; *"}},
    };
    for (const auto& [content, green, texts, messages] : rows) {
        SCOPED_TRACE(content.target);
        const opt_analysis analysis = analyse_opt(content);
        EXPECT_EQ(analysis.green, green);
        EXPECT_EQ(analysis.panels, texts);
        if (green) continue;
        std::vector<std::string> shown;
        for (const message_box& box : red_light_boxes(analysis))
            shown.push_back(box.text);
        EXPECT_EQ(shown, messages);
    }
}

TEST(OptAnalysis, SaysWhereTheFaultsAre)
{
    const opt_analysis analysis = analyse_opt(target_of(" x + u", {"x(0)=2", "a = 2*u", "x = 1", "y(0) = z"}));
    EXPECT_EQ(analysis.undefined_places, (std::vector<text_place>{{2, 6, 1}, {0, 5, 1}}));
    EXPECT_EQ(analysis.duplicates, std::vector<std::string>{"x"});
    EXPECT_EQ(analysis.duplicate_places, (std::vector<text_place>{{1, 0, 1}, {3, 0, 1}}));
    EXPECT_EQ(analysis.rows_without_start, std::vector<int>{4});
    EXPECT_EQ(analyse_opt(target_of(" x + 2 3", {})).failures.front().place, (text_place{0, 5, 3}));
}

TEST(OptAnalysis, TheListingEndsWithItsWarnings)
{
    const auto listing_of = [](const opt_content& content) {
        return plain_text_of(read_rich_text(rich_text_document(show_all_vars(content))));
    };
    EXPECT_EQ(listing_of(target_of("x+u", {"x(0)=2", "a = w"})),
              "Initialized variables:\nx\n\nExplicit variables:\na\n\nTarget Function variables:\nx, u\n\n"
              "Not Initialized variables:\nw, u\n\nWarning: Undefined variables exist.\n\n");
    const opt_content twice = target_of("x", {"x(0)=2", "x(0)=3"});
    EXPECT_EQ(listing_of(twice), "Initialized variables:\nx\n\nExplicit variables:\n\nTarget Function variables:\nx\n\n"
                                 "Not Initialized variables:\n\nWarning: Variable defined more than once: x\n"
                                 "All the variables have been properly initialized.\n\n");
    EXPECT_EQ(listing_warnings(analyse_opt(twice)),
              std::vector<std::string>{"Warning: Variable defined more than once: x"});
}

} // namespace
} // namespace kelvarin
