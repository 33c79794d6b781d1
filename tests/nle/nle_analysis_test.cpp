// SPDX-License-Identifier: MIT
#include "nle/nle_analysis.h"
#include "support/equation_rows.h"
#include "support/table.h"

#include <gtest/gtest.h>

namespace kelvarin::test
{
namespace
{

using rows = std::vector<equation_row>;

nle_content problem(rows equations, std::string lower = "", std::string upper = "")
{
    return {"", nle_method::fastnewt, std::move(equations), std::move(lower), std::move(upper)};
}

TEST(NleAnalysis, LightAndThirdPanel)
{
    const table<const char*, nle_content, bool, const char*> verdicts = {
        {"empty", problem({}), false, ""},
        {"single", problem({implicit_row("x", "x^2 - 1")}, "1", "2"), true, ""},
        {"equal bounds", problem({implicit_row("x", "x^2 - 1")}, "1", "1.0"), false,
         "Warning: Lower/upper boundary guess are equall or not ascending"},
        {"descending bounds", problem({implicit_row("x", "x^2 - 1")}, "2", "1"), true, ""},
        {"no bounds", problem({implicit_row("x", "x^2 - 1")}), false,
         "Warning: Lower/upper boundary guess is not a valid number"},
        {"bound with a tail", problem({implicit_row("x", "x^2 - 1")}, "1", "2 m"), false,
         "Warning: Lower/upper boundary guess is not a valid number"},
        {"bounds are not looked at", problem({implicit_row("x", "y"), implicit_row("y", "x")}, "z", "z"), true, ""},
        {"implicit twice", problem({implicit_row("x", "x - 1"), implicit_row("x", "x - 2")}), true,
         "Variable defined more than once: x "},
        {"explicit twice", problem({explicit_row("x", "1"), explicit_row("x", "2")}), false,
         "Variable defined more than once: x "},
        {"implicit and explicit", problem({implicit_row("x", "x"), explicit_row("x", "2")}, "1", "2"), false,
         "Variable defined more than once: x "},
        {"two duplicates, implicit ones first",
         problem({explicit_row("b", "1"), explicit_row("b", "1"), implicit_row("a", "a"), implicit_row("a", "b")}),
         false, "Variables defined more than once: a, b "},
        {"undefined", problem({implicit_row("x", "x - a")}, "1", "2"), false, "Undefined Variable: a "},
        {"several undefined, before duplicates", problem({explicit_row("x", "c + b"), explicit_row("x", "b + B")}),
         false, "Undefined Variables: c, b, B "},
        {"undefined, before bounds", problem({implicit_row("x", "x - a")}), false, "Undefined Variable: a "},
        {"fact is a variable", problem({implicit_row("x", "fact(x)")}, "1", "2"), false, "Undefined Variable: fact "},
        {"defined fact", problem({explicit_row("fact", "1"), explicit_row("y", "fact(2)")}), true, ""},
        {"alog and srq are words", problem({explicit_row("y", "alog(2) + srq(2)")}), true, ""},
        {"words are exact", problem({explicit_row("y", "Sin(2)")}), false, "Undefined Variable: Sin "},
        {"verbs", problem({explicit_row("y", "if 1 then 2 else 3")}), true, ""},
        {"malformed numbers do not count", problem({explicit_row("y", "2x + 1e + 1.2.3")}), true, ""},
        {"invalid explicit name", problem({explicit_row("2x", "1")}), false, ""},
        {"a circle is not seen", problem({explicit_row("a", "b"), explicit_row("b", "a")}), true, ""},
        {"unbalanced text", problem({explicit_row("a", "((b"), explicit_row("b", "")}), true, ""},
        {"empty rows are none", problem({explicit_row("a", "1"), {"", "", ""}}), true, ""},
    };
    for (const auto& [name, content, green, third_panel] : verdicts) {
        SCOPED_TRACE(name);
        const nle_analysis analysis = analyse_nle(content);
        EXPECT_EQ(analysis.green, green);
        EXPECT_EQ(analysis.panels[2], third_panel);
    }
}

TEST(NleAnalysis, ListingHasAllSectionsAndEveryWarning)
{
    const nle_content content = problem(
        {implicit_row("x", "x - a"), explicit_row("b", "1"), explicit_row("b{", "2"), explicit_row("b", "3")}, "", "u");
    EXPECT_EQ(show_all_vars(content), R"({\cf1\b Implicit variables} (1)\par x\par \par )"
                                      R"({\cf1\b Explicit variables } (3)\par b, b\{, b\par \par )"
                                      R"({\b\cf1 Undefined variables} (1)\par a\par \par )"
                                      R"({\cf7{\b Warning:} Duplicate explicit variable/s exist/s.}\par )"
                                      R"({\cf7{\b Warning:} More equations than variables exist.}\par )"
                                      R"({\cf7{\b Warning:} Lower boundary guess for NLE is not a valid number.}\par )"
                                      R"({\cf7{\b Warning:} Upper boundary guess for NLE is not a valid number.}\par )"
                                      R"({\cf7{\b Warning:} Undefined variable/s exist.}\par )");
    EXPECT_EQ(show_all_vars({}), R"({\cf1\b Implicit variables} (0)\par \par )"
                                 R"({\cf1\b Explicit variables } (0)\par \par )"
                                 R"({\b\cf1 Undefined variables} (0)\par \par )");
}

TEST(NleAnalysis, WarningsAsPlainText)
{
    using texts = std::vector<std::string>;
    EXPECT_EQ(
        listing_warnings(problem({implicit_row("x", "x"), implicit_row("x", "x")})),
        (texts{"Warning: Duplicate implicit variable/s exist/s.", "Warning: More equations than variables exist."}));
    EXPECT_EQ(listing_warnings(problem({implicit_row("x", "x")}, "3", "3")),
              texts{"Warning: Upper boundary guess is equall to Lower boundary guess."});
    EXPECT_EQ(listing_warnings(problem({implicit_row("x", "x")}, "3", "4")), texts{});
}

TEST(NleAnalysis, ARedLightSaysWhyInOneBox)
{
    struct refusal
    {
        nle_content content;
        const char* text;
    };
    const refusal refusals[] = {
        {problem({}), "No nonlinear equations (Implicit equations) have been entered. Solution aborted."},
        {problem({implicit_row("x", "x - a")}, "", ""), "Lower boundary guess for NLE is not a valid number."},
        {problem({implicit_row("x", "x")}, "1", "1e"), "Upper boundary guess for NLE is not a valid number."},
        {problem({implicit_row("x", "x")}, "1", "1"), "Upper boundary guess is equall to Lower boundary guess."},
        {problem({implicit_row("x", "x - a")}, "1", "2"), "Undefined Variable: a"},
        {problem({explicit_row("2x", "1")}), "Warning: Duplicate explicit variable/s exist/s.\r"
                                             "Warning: More equations than variables exist."},
    };
    for (const refusal& r : refusals) {
        SCOPED_TRACE(r.text);
        const message_box box = red_light_box(r.content);
        EXPECT_EQ(box.text, r.text);
        EXPECT_EQ(box.title, "Kelvarin Guide");
    }
    EXPECT_EQ(red_light_box(refusals[4].content).place, (text_place{1, 11, 1}));
}

TEST(NleAnalysis, TheNextStepFollowsThePanelAndInvitesToGiveBounds)
{
    const std::string invitation = "Give a lower and an upper bound, or add equations.";
    const table<nle_content, std::string> steps = {
        {problem({}), ""},
        {problem({implicit_row("x", "x - a")}, "", ""), "Undefined Variable: a"},
        {problem({implicit_row("x", "x - 1")}, "", ""), invitation},
        {problem({implicit_row("x", "x - 1")}, "1", ""), invitation},
        {problem({implicit_row("x", "x - 1")}, "1", "b"), "Warning: Lower/upper boundary guess is not a valid number"},
        {problem({implicit_row("x", "x - 1")}, "1", "2"), ""},
        {problem({explicit_row("2x", "1")}),
         "Warning: Duplicate explicit variable/s exist/s. Warning: More equations than variables exist."},
    };
    for (const auto& [content, step] : steps)
        EXPECT_EQ(next_step(content), step);
}

} // namespace
} // namespace kelvarin::test
