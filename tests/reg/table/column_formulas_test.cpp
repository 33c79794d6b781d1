// SPDX-License-Identifier: MIT
#include "reg/table/column_formulas.h"

#include "reg/table/table_edits.h"
#include "reg/table/table_samples.h"
#include "shell/general_lib.h"
#include "support/table.h"
#include "support/tables.h"

#include <gtest/gtest.h>
#include <rapidcheck.h>

#include <cstdlib>
#include <string>
#include <utility>
#include <vector>

namespace kelvarin
{
namespace
{

using test::cells_of;
using test::table_of;
using columns = std::vector<std::pair<std::string, std::vector<std::string>>>;

/// The first three cells of the third column after it was defined; or the box's text.
std::string defined(const columns& sources, const char* formula)
{
    table_content content = table_of(sources, {3, 4});
    evaluation_context context;
    if (const auto refused = define_column(content, 2, formula, context)) return refused->title + ": " + refused->text;
    return cells_of(content, 2, 3);
}

TEST(ColumnFormulas, DefinitionsFillTheirColumn)
{
    const std::string circle = "Kelvarin Guide: Circular column definitions not allowed.";
    const columns ab = {{"A", {"1", "-2", "3"}}, {"B", {"10", "", "5"}}, {"T", {"x", "old", "y"}}};
    const test::table<columns, const char*, std::string> cases = {
        {ab, "A^2", "1 4 9"},
        {ab, "A+B", "11 old 8"},
        {ab, "2", "2 2 2"},
        {ab, "1/(A-1)", "$Err! -0.3333333333 0.5"},
        {ab, "if A > 2 then 1 else 0", "0 0 1"},
        {ab, "if A>2 then 1 else 0", "$Err! $Err! $Err!"},
        {ab, "pi*A", "$Err! $Err! $Err!"},
        {ab, "T+1", circle},
        {ab, "A+T2", circle},
        {ab, "", "Error: "},
        {ab, "A+", "Error: "},
        // Inside another name a name is no word but blocks the row.
        {{{"A", {"1", "", "3"}}, {"AB", {"2", "4", "6"}}, {"T", {}}}, "AB/2", "1 _ 3"},
        {{{"e", {"1", "", "3"}}, {"x", {"0", "0", "0"}}, {"T", {}}}, "exp(x)", "1 _ 1"},
        // Texts of cells stand in for their names.
        {{{"A", {"+5", "1d2", ".5"}}, {"B", {"1e-3", "-1E+2", "1 2"}}, {"T", {}}}, "A*1", "5 100 0.5"},
        {{{"A", {"+5", "1d2", ".5"}}, {"B", {"1e-3", "-1E+2", "1 2"}}, {"T", {}}}, "B*1", "0.001 -100 $Err!"},
        {{{"A", {"$Err!", "B", "1+1"}}, {"B", {"1", "2", "3"}}, {"T", {}}}, "A*2", "$Err! $Err! 4"},
        // A text with the column's own name would be a circle.
        {{{"A", {"1E-07", "2", "3"}}, {"B", {}}, {"E", {"old", "", ""}}}, "A*2", "old 4 6"},
        {{{"A", {"1", "2", "3"}}, {"A", {"5", "5", "5"}}, {"T", {}}}, "A*2", "2 4 6"},
        {{{"A", {"1e308", "1e999", "-0"}}, {"B", {}}, {"T", {}}}, "A*10", "$Err! $Err! 0"},
    };
    for (const auto& [sources, formula, expected] : cases) {
        const std::string result = defined(sources, formula);
        if (expected == "Error: ")
            EXPECT_TRUE(result.starts_with("Error: Syntax Error: ")) << formula << " " << result;
        else
            EXPECT_EQ(result, expected) << formula;
    }
}

TEST(ColumnFormulas, CirclesAreFoundOverTwoColumnsAndAsParts)
{
    evaluation_context context;
    table_content content = table_of({{"A", {"1"}}, {"AB=2*C", {"1"}}, {"C", {"1"}}}, {2, 4});
    EXPECT_TRUE(define_column(content, 2, "AB+1", context)) << "AB uses C";
    // A is contained in AB, and A's formula would contain C.
    content = table_of({{"A", {"1"}}, {"C=AB/2", {"1"}}, {"AB", {"2"}}}, {2, 4});
    EXPECT_TRUE(formula_fault(content, 0, "3*C"));
    // Three in a circle are accepted and evaluated once.
    content = table_of({{"P=R+1", {"1"}}, {"Q=P+1", {"1"}}, {"R", {"1"}}, {"X", {"7"}}}, {2, 4});
    ASSERT_FALSE(define_column(content, 2, "Q+1", context));
    EXPECT_EQ(cells_of(content, 2, 1) + " " + cells_of(content, 0, 1) + " " + cells_of(content, 1, 1), "2 3 4");
}

TEST(ColumnFormulas, AnEditReachesTheColumnsOfItsRowOnceFromLeftToRight)
{
    evaluation_context context;
    table_content content =
        table_of({{"L=M+1", {"1", "1"}}, {"A", {"1", "1"}}, {"M=2*A", {"1", "1"}}, {"N=M+1", {"1", "1"}}}, {2, 4});
    const auto row = [&] { return cells_of(content, 0, 1) + cells_of(content, 2, 1) + cells_of(content, 3, 1); };
    put_cell(content, 0, 1, "3", context);
    EXPECT_EQ(row(), "267") << "L still saw the old M";
    put_cell(content, 0, 1, "3", context);
    EXPECT_EQ(row(), "767");
    put_cell(content, 0, 1, "", context);
    EXPECT_EQ(row(), "7__") << "L lags again";
    put_cell(content, 0, 1, "x", context);
    EXPECT_EQ(row(), "_$Err!$Err!");
    EXPECT_EQ(cells_of(content, 2, 2), "$Err! 1") << "other rows stay";
}

TEST(ColumnFormulas, TheWholeTableIsRecalculatedFromNumbers)
{
    evaluation_context context;
    table_content content = table_of({{"A", {"1", "3", "", "x"}},
                                      {"B=if A>2 then 1/3 else A", {"9", "9", "9", "9"}},
                                      {"C=B*3", {"9", "", "9", "9"}},
                                      {"D=C+B", {"9", "9", "9", ""}}},
                                     {4, 4});
    recalc_all_formula_columns(content, context);
    EXPECT_EQ(cells_of(content, 1, 4), "1 0.3333333333 $Err! $Err!");
    EXPECT_EQ(cells_of(content, 2, 4), "3 _ $Err! $Err!");
    EXPECT_EQ(cells_of(content, 3, 4), "4 $Err! $Err! _") << "a blank formula cell is no source";
    content.calc_digits = 22;
    put_cell(content, 1, 0, "4", context);
    recalc_all_formula_columns(content, context);
    EXPECT_EQ(cells_of(content, 1, 2), "1 0.33333333333333331");
}

TEST(ColumnFormulas, TheExampleIsWhatItsFormulasGive)
{
    evaluation_context context;
    table_content content = table_sample(1, table_content(), 1);
    const table_content printed = content;
    for (int row = 0; row < 10; ++row)
        put_cell(content, row, 1, content.cells.text(row, 1), context);
    for (int row = 0; row < 10; ++row)
        for (int column = 2; column < 9; ++column) {
            // Eight digits are printed; the difference of large terms in the last column has some of them.
            const double shown = printed.cells.number(row, column).value;
            const double calculated = content.cells.number(row, column).value;
            EXPECT_NEAR(calculated, shown, column == 8 ? 2e-6 : 6e-8 * std::abs(shown) + 5e-9) << row << " " << column;
        }
}

TEST(ColumnFormulas, ValuesAreThoseOfTheSubstitutedText)
{
    EXPECT_TRUE(rc::check("of random formulas over random cells", [] {
        const auto cell =
            rc::gen::element<std::string>("0", "1", "-2.5", "1E-07", "-3e+2", "+4", "1d1", ".5", "7.", "abc", "$Err!",
                                          "1 2", "2+3", "1e999", "12345678901234567890", "-0");
        const auto piece = rc::gen::element<std::string>("A", "B", "AB", "+", "-", "*", "/", "^", "(", ")", "2",
                                                         "sin(A)", "exp(B)", "sqrt(AB)", "A^B", "(A-B)", "-A",
                                                         "if A == B then A else B", " ", "A ", "int(B)");
        table_content content = table_of({{"A", {*cell}}, {"B", {*cell}}, {"T", {}}, {"AB", {*cell}}}, {1, 4});
        std::string formula = *rc::gen::element<std::string>("A", "B", "AB");
        for (int pieces = *rc::gen::inRange(0, 6); pieces > 0; --pieces)
            formula += *rc::gen::element<std::string>("+", "-", "*", "/", "^") + *piece;
        evaluation_context context;
        table_content calculated = content;
        if (define_column(calculated, 2, formula, context)) RC_DISCARD("no formula");
        clsParse store;
        const std::string text = substituted_formula(content, 0, formula);
        std::string expected = cell_error;
        if (check_expression(text, &store).ok) {
            const solved_expression solved = store.Solve_expression(text, context);
            if (solved.ok) expected = format_digits(solved.value, 10);
        }
        RC_ASSERT(calculated.cells.text(0, 2) == expected);
    }));
}

} // namespace
} // namespace kelvarin
