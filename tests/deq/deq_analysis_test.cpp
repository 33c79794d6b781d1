// SPDX-License-Identifier: MIT
#include "deq/deq_analysis.h"
#include "platform/text_file.h"
#include "support/deq_problems.h"
#include "support/equation_rows.h"
#include "support/table.h"

#include <gtest/gtest.h>

namespace kelvarin
{
namespace
{

using test::differential_row;
using test::explicit_row;
using test::integrated;

deq_content over(std::string independent, std::string initial, std::string final, std::vector<equation_row> rows)
{
    return integrated(std::move(rows), std::move(initial), std::move(final), std::move(independent));
}

TEST(DeqAnalysis, LightAndThirdPanel)
{
    const equation_row decay = differential_row("y", "-y");
    const test::table<const char*, deq_content, bool, std::string> verdicts = {
        {"complete", over("t", "0", "1", {decay}), true, ""},
        {"an unused name counts as well", over(" t ", "-1.5", "1e2", {decay, explicit_row("k", "2")}), true, ""},
        {"explicit rows alone", over("t", "0", "1", {explicit_row("k", "2*t")}), true, ""},
        {"nothing", over("t", "0", "1", {}), false, ""},
        {"undefined", over("t", "0", "1", {differential_row("y", "k*y")}), false, "Undefined Variable: k "},
        {"undefined goes first", over("2t", "", "", {differential_row("y", "k*y+m"), decay}), false,
         "Undefined Variables: k, m "},
        {"another name than the rows use", over("x", "0", "1", {differential_row("y", "t")}), false,
         "Undefined Variable: t "},
        {"words of the checker that the analysis does not know",
         over("t", "0", "1", {differential_row("y", "cbrt(t)")}), false, "Undefined Variable: cbrt "},
        {"a malformed number is nothing", over("t", "0", "1", {differential_row("y", "2x")}), true, ""},
        {"explicit independent", over("t", "", "", {decay, explicit_row("t", "1"), explicit_row("t", "2")}), false,
         "Warning: Independent variable symbol is also defined as an explicit variable"},
        {"differential independent", over("y", "0", "1", {decay}), false,
         "Warning: Independent variable symbol is also defined as an implicit variable"},
        {"twice", over("t", "0", "", {decay, explicit_row("y", "1")}), false, "Variable defined more than once: y "},
        {"twice differential, where the counts agree", over("t", "0", "1", {decay, decay}), false,
         "Variable defined more than once: y "},
        {"several twice", over("t", "0", "1", {explicit_row("a", "1"), explicit_row("a", "1"), decay, decay}), false,
         "Variables defined more than once: y, a "},
        {"no initial value", over("2t", "", "x", {decay}), false,
         "Warning: Initial integration value is empty or is not numeric"},
        {"no final value", over("2t", "0", "1 s", {decay}), false,
         "Warning: Final integration value is empty or is not numeric"},
        {"equal values", over("2t", "1", "1.0", {decay}), false,
         "Warning: Final value of the integration variable must be greater than the initial value"},
        {"descending", over("t", "1", "0", {decay}), false,
         "Warning: Final value of the integration variable must be greater than the initial value"},
        {"invalid name", over("2t", "0", "1", {decay}), false,
         "Warning: Independent variable symbol is not a valid variable name"},
        {"no name", over(" ", "0", "1", {decay}), false,
         "Warning: Independent variable symbol is not a valid variable name"},
    };
    for (const auto& [name, content, green, third_panel] : verdicts) {
        SCOPED_TRACE(name);
        EXPECT_EQ(analyse_deq(content).green, green);
        EXPECT_EQ(analyse_deq(content).panels[2], third_panel);
        if (green || third_panel.empty())
            EXPECT_EQ(red_light_box(content).title, "Kelvarin Guide Guide");
        else
            EXPECT_EQ(red_light_box(content).text, trimmed(third_panel));
    }
}

TEST(DeqAnalysis, TheNextStepNamesWhatIsMissingOrInvalid)
{
    const equation_row decay = differential_row("y", "-y");
    const test::table<deq_content, std::string> steps = {
        {over("", "", "", {decay}), "Name the independent variable and give its range."},
        {over("t", "", "1", {decay}), "Give the initial and the final value of t."},
        {over("t", "0", "1", {decay, explicit_row("2a", "5")}), "'2a' is no valid name of a variable."},
        {over("t", "0", "1", {decay}), ""},
    };
    for (const auto& [content, step] : steps)
        EXPECT_EQ(next_step(content), step);
}

TEST(DeqAnalysis, CountsAndRowsWithoutStart)
{
    const deq_analysis none = analyse_deq({});
    EXPECT_EQ(none.panels[0], "Differential Equations: 0 ");
    EXPECT_EQ(none.panels[1], "Auxiliary Equations: 0 ");
    const deq_analysis some = analyse_deq(over("t", "0", "1",
                                               {explicit_row("a", "1"), differential_row("y", "1", ""),
                                                differential_row("z", "1", "2"), differential_row("u", "1", "3 m")}));
    EXPECT_EQ(some.panels[0], "Differential Equations: 3 ");
    EXPECT_EQ(some.panels[1], "Auxiliary Equations: 1 ");
    EXPECT_EQ(some.set.rows_without_value, (std::vector{2, 4}));
}

TEST(DeqAnalysis, ListsVariablesAndAllWarnings)
{
    EXPECT_EQ(show_all_vars(over("t", "0", "1",
                                 {differential_row("y", "k*y"), explicit_row("k", "2"), differential_row("z", "1")})),
              R"({\b\cf1 Differential variables} (2)\par y, z\par \par )"
              R"({\b\cf1 Explicit variables} (1)\par k\par \par )"
              R"({\b\cf1 Undefined variables} (0)\par \par )"
              R"({\b\cf1 Multiply defined variables} (0)\par \par )"
              R"({\b\cf1 Independent variable} = t\par \par )");
    const deq_content bad =
        over("2{", "a", "",
             {differential_row("y", "1"), differential_row("y", "2"), explicit_row("k", "u"), explicit_row("k", "2")});
    const std::string listing = show_all_vars(bad);
    EXPECT_NE(
        listing.find(R"({\cf7{\b Warning:} Independent variable field '2\{' contains invalid variable name}\par )"),
        std::string::npos)
        << listing;
    EXPECT_EQ(listing_warnings(bad),
              (std::vector<std::string>{
                  "Warning: Duplicate implicit variable/s exist/s.", "Warning: Duplicate explicit variable/s exist/s.",
                  "Warning: Independent variable field '2{' contains invalid variable name",
                  "Warning: Initial integration data variable is empty or is not numeric",
                  "Warning: Final integration data variable is empty or is not numeric",
                  "Warning: Undefined variable/s exist.", "Warning: Multiply defined variable/s exist.",
                  "Warning: More equations than variables exist."}));
    EXPECT_EQ(listing_warnings(over("", "1", "0", {differential_row("y", "1")})),
              (std::vector<std::string>{
                  "Warning: Independent variable field empty",
                  "Warning: Final value of the integration variable must be greater than the initial value."}));
    EXPECT_EQ(listing_warnings(over("t", "0", "1", {differential_row("y", "1"), differential_row("y", "t")})).back(),
              "Warning: More equations than variables exist.")
        << "the independent variable is none of theirs";
}

} // namespace
} // namespace kelvarin
