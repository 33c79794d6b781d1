// SPDX-License-Identifier: MIT
#include "nle/equations/set_analysis.h"
#include "nle/equations/set_texts.h"
#include "support/equation_rows.h"

#include <gtest/gtest.h>

namespace kelvarin
{
namespace
{

using test::explicit_row;
using test::implicit_row;
using rows = std::vector<equation_row>;
using texts = std::vector<std::string>;

TEST(SetAnalysis, PlacesPointAtTheNamesInTheRows)
{
    const equation_set set = analyse_rows(
        rows{implicit_row("x", "x - aa"), explicit_row("x", "1"), {"", "", ""}, explicit_row("y", "aa*aa")},
        test::f_rows);
    const std::vector<text_place> undefined = {{1, 11, 2}, {4, 4, 2}, {4, 7, 2}};
    const std::vector<text_place> duplicates = {{1, 2, 1}, {2, 0, 1}};
    EXPECT_EQ(set.undefined_places, undefined);
    EXPECT_EQ(set.duplicate_places, duplicates);
    EXPECT_EQ(set.first_fault(), undefined.front());
}

TEST(SetAnalysis, TheIndependentVariableIsKnownAndCountsOnce)
{
    struct verdict
    {
        const char* name;
        rows equations;
        const char* independent;
        bool complete;
        texts undefined;
        bool more_equations;
    };
    const equation_row decay = {"d(y)/d(t) = -k*y", "1", ""};
    const verdict verdicts[] = {
        {"not used", {decay, explicit_row("k", "2")}, "t", true, {}, false},
        {"used", {decay, explicit_row("k", "2*t")}, "t", true, {}, false},
        {"renamed", {decay, explicit_row("k", "2*t")}, "x", false, {"t"}, false},
        {"also an explicit variable", {decay, explicit_row("k", "2")}, "k", false, {}, false},
        {"also a differential variable", {decay, explicit_row("k", "2")}, "y", false, {}, false},
        {"no valid name", {decay, explicit_row("k", "2")}, "2t", false, {}, false},
        {"a duplicate is not made up for", {decay, decay, explicit_row("k", "t")}, "t", true, {}, true},
        {"empty", {}, "t", false, {}, false},
    };
    for (const verdict& v : verdicts) {
        SCOPED_TRACE(v.name);
        const equation_set set = analyse_rows(v.equations, {"d("}, v.independent);
        EXPECT_EQ(set.is_complete(), v.complete);
        EXPECT_EQ(set.undefined, v.undefined);
        EXPECT_EQ(set.has_more_equations_than_variables(), v.more_equations);
    }
}

TEST(SetTexts, PanelsAndListingAreWrittenAlike)
{
    const texts none;
    const texts one = {"a"};
    const texts several = {"a", "b{"};
    EXPECT_EQ(count_panel("Differential Equations", 3), "Differential Equations: 3 ");
    EXPECT_EQ(undefined_panel(none), "");
    EXPECT_EQ(undefined_panel(one), "Undefined Variable: a ");
    EXPECT_EQ(duplicates_panel(several), "Variables defined more than once: a, b{ ");

    std::string listing;
    add_names_section(listing, R"({\b\cf1 Differential variables})", several);
    add_names_section(listing, R"({\b\cf1 Undefined variables})", none);
    add_warnings(listing, texts{"field '}' is empty"});
    EXPECT_EQ(listing, R"({\b\cf1 Differential variables} (2)\par a, b\{\par \par )"
                       R"({\b\cf1 Undefined variables} (0)\par \par )"
                       R"({\cf7{\b Warning:} field '\}' is empty}\par )");
    EXPECT_EQ(plain_warnings(one), texts{"Warning: a"});
}

} // namespace
} // namespace kelvarin
