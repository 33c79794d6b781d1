// SPDX-License-Identifier: MIT
#include "nle/equations/set_analysis.h"
#include "support/equation_rows.h"
#include "support/table.h"

#include <gtest/gtest.h>

namespace kelvarin::test
{

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
    const equation_row decay = {"d(y)/d(t) = -k*y", "1", ""};
    const table<const char*, rows, const char*, bool, texts, bool> verdicts = {
        {"not used", {decay, explicit_row("k", "2")}, "t", true, {}, false},
        {"used", {decay, explicit_row("k", "2*t")}, "t", true, {}, false},
        {"renamed", {decay, explicit_row("k", "2*t")}, "x", false, {"t"}, false},
        {"also an explicit variable", {decay, explicit_row("k", "2")}, "k", false, {}, false},
        {"also a differential variable", {decay, explicit_row("k", "2")}, "y", false, {}, false},
        {"no valid name", {decay, explicit_row("k", "2")}, "2t", false, {}, false},
        {"a duplicate is not made up for", {decay, decay, explicit_row("k", "t")}, "t", true, {}, true},
        {"empty", {}, "t", false, {}, false},
    };
    for (const auto& [name, equations, independent, complete, undefined, more_equations] : verdicts) {
        SCOPED_TRACE(name);
        const equation_set set = analyse_rows(equations, {"d("}, independent);
        EXPECT_EQ(set.is_complete(), complete);
        EXPECT_EQ(set.undefined, undefined);
        EXPECT_EQ(set.has_more_equations_than_variables(), more_equations);
    }
}

} // namespace kelvarin::test
