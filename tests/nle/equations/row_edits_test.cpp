// SPDX-License-Identifier: MIT
#include "nle/equations/row_edits.h"
#include "support/equation_rows.h"
#include "support/table.h"

#include <gtest/gtest.h>

namespace kelvarin::test
{
namespace
{

using rows = std::vector<equation_row>;

constexpr row_form differential_form = {"d("};
constexpr row_form start_value_form = {"", "(0)"};

const std::string bad_format =
    " not valid.\rAll variables must start with a string character and may contain the chars A..Z, a..z, 0..9, or "
    "underscore";

/// The text of a box; empty where there was none.
std::string text_of(const row_refusal& refused)
{
    return refused ? refused->text : std::string();
}

std::string text_of(const edited_rows& edited)
{
    return std::holds_alternative<message_box>(edited) ? std::get<message_box>(edited).text : std::string();
}

rows named(std::string_view names)
{
    rows result;
    for (const char name : names)
        result.push_back(explicit_row(std::string(1, name), "1"));
    return result;
}

std::string names_of(const rows& equations)
{
    std::string names;
    for (const equation_row& row : equations)
        names += row.equation.substr(0, 1);
    return names;
}

TEST(RowEdits, FieldsAreCheckedWithTheirPlace)
{
    EXPECT_EQ(text_of(check_expression_field("undefined + 1")), "");
    EXPECT_EQ(text_of(check_expression_field("")), "Syntax Error: No expression entered.");
    EXPECT_EQ(text_of(check_expression_field("2*")), "Syntax Error: extra operator at the end of the expression; *");
    EXPECT_EQ(check_expression_field("2*")->place, (text_place{0, 1, 1}));
    EXPECT_EQ(text_of(check_number_field(" -1.5e3 ", "no number")), "");
    EXPECT_EQ(text_of(check_number_field("1 p", "no number")), "no number");
    EXPECT_EQ(text_of(check_circular_definition("b", "1 + B + bb")), "");
    EXPECT_EQ(text_of(check_circular_definition(" b ", "1 + b")),
              "Circular definition of 'b'\rThe explicit varible being defined can not appear on the left hand side of "
              "the equation.");
    EXPECT_EQ(check_circular_definition("b", "1 + b")->place, (text_place{0, 4, 1}));
}

TEST(RowEdits, ANameIsValidAndDefinedOnce)
{
    const rows nonlinear = {implicit_row("x", "x - 1"), explicit_row("a", "2"), explicit_row("b(c)", "2")};
    const rows differential = {{"d(y)/d(t) = -y", "1", ""}, explicit_row("a", "2")};
    const rows starts = {{"x(0) = 2", "", ""}, explicit_row("a", "2")};
    const auto taken = [](const char* name) {
        return std::string("The variable '") + name + "' has already been defined.";
    };
    const table<const char*, rows, row_form, int, std::string> checks = {
        {" y ", nonlinear, f_rows, 0, ""},
        {"2y", nonlinear, f_rows, 0, "Variable format for '2y'" + bad_format},
        {"", nonlinear, f_rows, 0, "Variable format for ''" + bad_format},
        {"x", nonlinear, f_rows, 0, taken("x")},
        {"x", nonlinear, f_rows, 1, ""},
        {" a", nonlinear, f_rows, 1, taken("a")},
        {"c", nonlinear, f_rows, 0, taken("c")},
        {"y", differential, differential_form, 0, taken("y")},
        {"t", differential, differential_form, 0, ""},
        {"x", starts, start_value_form, 0, taken("x")},
        {"x", starts, start_value_form, 1, ""},
        {"a", starts, start_value_form, 1, taken("a")},
    };
    for (const auto& [name, equations, form, own_row, text] : checks)
        EXPECT_EQ(text_of(check_name_field(name, equations, form, own_row)), text)
            << std::string(name) + " beside " + equations.front().equation;
}

TEST(RowEdits, RowsAreAppendedUpToTheLimitAndReplaced)
{
    const std::string text = "Kelvarin can not add new equation. Kelvarin can solve up to 200 equations only.";
    EXPECT_EQ(make_explicit_row(" a ", " 2*x ", "two\r\nlines"), (equation_row{"a = 2*x", "n.a.", "two  lines"}));
    EXPECT_EQ(names_of(std::get<rows>(put_row(named("ab"), explicit_row("c", "1"), 0))), "abc");
    EXPECT_EQ(names_of(std::get<rows>(put_row(named("ab"), explicit_row("c", "1"), 1))), "cb");
    const rows full(200, explicit_row("a", "1"));
    EXPECT_EQ(text_of(put_row(full, explicit_row("c", "1"), 0)), text);
    EXPECT_EQ(names_of(std::get<rows>(put_row(full, explicit_row("c", "1"), 200))).back(), 'c');
    EXPECT_EQ(check_room(200)->icon, box_icon::critical);
    EXPECT_FALSE(check_room(199));
}

TEST(RowEdits, RemovingLeavesOneEquation)
{
    // Nothing is left where it is refused.
    const table<const char*, std::vector<int>, const char*> removals = {
        {"abc", {2}, "ac"}, {"abcd", {4, 1, 4}, "bc"}, {"abc", {0, 4}, "abc"}, {"a", {1}, ""},
        {"a", {2}, ""},     {"abc", {3, 2, 1}, ""},    {"abc", {1, 2}, "c"},   {"abc", {}, "abc"},
    };
    for (const auto& [before, numbers, after] : removals) {
        SCOPED_TRACE(before);
        const edited_rows edited = remove_rows(named(before), numbers);
        if (*after == '\0') {
            EXPECT_EQ(text_of(edited), "Can not remove last equation.");
        } else {
            EXPECT_EQ(names_of(std::get<rows>(edited)), after);
        }
    }
}

TEST(RowEdits, RowsMoveTogetherWithinTheTable)
{
    const table<std::vector<int>, bool, const char*> movements = {
        {{2}, true, "bacd"},    {{2}, false, "acbd"},    {{1}, true, ""},        {{4}, false, ""},
        {{2, 3}, true, "bcad"}, {{3, 2}, false, "adbc"}, {{4, 2}, true, "badc"}, {{1, 3}, false, "badc"},
        {{1, 3}, true, ""},     {{3, 4}, false, ""},     {{}, true, ""},         {{5}, true, ""},
    };
    for (const auto& [numbers, up, after] : movements) {
        const std::optional<rows> moved = move_rows(named("abcd"), numbers, up);
        EXPECT_EQ(moved ? names_of(*moved) : "", after);
    }
}

TEST(RowEdits, RenamingChangesTheRowAndEveryUseOfTheWholeWord)
{
    const table<std::string, std::string> equations = {
        {"f(x) = x-a*x1", "f(t) = t-a*x1"},
        {"x1 = x^2+(x)+max", "x1 = t^2+(t)+max"},
        // Words that stand beside what replace_name does not take for the end of a word.
        {"b = if x<2 && x>=a then exp(x) else -x", "b = if t<2 && t>=a then exp(t) else -t"},
        {"c = xx + x_2 + X + 2e-3", "c = xx + x_2 + X + 2e-3"},
        {"a=x", "a=t"},
        {"no equation x", "no equation x"},
    };
    rows before;
    rows expected;
    for (const auto& [given, renamed] : equations) {
        before.push_back({given, "1 p", "x"});
        expected.push_back({renamed, "1 p", "x"});
    }
    EXPECT_EQ(std::get<rows>(rename_in_rows(before, f_rows, " x ", " t ")), expected);
    // A call stays a call, although a row has the function's name.
    const rows calls = {explicit_row("sin", "1"), explicit_row("a", "sin(2)")};
    EXPECT_EQ(std::get<rows>(rename_in_rows(calls, f_rows, "sin", "s")),
              (rows{explicit_row("s", "1"), explicit_row("a", "sin(2)")}));
    EXPECT_EQ(std::get<rows>(rename_in_rows({explicit_row("a", "2*b")}, f_rows, "b", "y")),
              rows{explicit_row("a", "2*y")})
        << "a variable that no row defines";
}

TEST(RowEdits, RenamingFollowsAVariableThroughTheRows)
{
    const rows before = {{"d(y)/d(t) = -k*y + sin(y)", "1", "y"}, {"k = if y>2 then yy else y", "n.a.", ""}};
    const rows after = {{"d(z)/d(t) = -k*z + sin(z)", "1", "y"}, {"k = if z>2 then yy else z", "n.a.", ""}};
    EXPECT_EQ(std::get<rows>(rename_in_rows(before, differential_form, " y ", " z ")), after);
    EXPECT_EQ(std::get<rows>(rename_in_rows(before, differential_form, "y", "y")), before);
    EXPECT_EQ(std::get<rows>(rename_in_rows(before, differential_form, "2y", "z")), before);
    EXPECT_EQ(text_of(rename_in_rows(before, differential_form, "y", "k")),
              "The variable 'k' has already been defined.");
    EXPECT_EQ(std::get<message_box>(rename_in_rows(before, differential_form, "y", "k")).icon, box_icon::exclamation);
    EXPECT_EQ(text_of(rename_in_rows(before, differential_form, "y", "2z")), "Variable format for '2z'" + bad_format);
    // yy is not defined, and k uses it.
    EXPECT_EQ(text_of(rename_in_rows(before, differential_form, "k", "yy")).substr(0, 27),
              "Circular definition of 'yy'");
    const rows starts = {{"x(0) = 2", "", ""}, {"a = 3*x", "n.a.", ""}};
    const rows renamed = {{"w(0) = 2", "", ""}, {"a = 3*w", "n.a.", ""}};
    EXPECT_EQ(std::get<rows>(rename_in_rows(starts, start_value_form, "x", "w")), renamed);
    EXPECT_EQ(rename_in_expression("then*2 + sin(then)", "then", "b"), "then*2 + sin(then)");
}

} // namespace
} // namespace kelvarin::test
