// SPDX-License-Identifier: MIT
#include "leq/leq_problem.h"
#include "leq/leq_recovery.h"
#include "support/leq_problems.h"
#include "support/table.h"

#include <gtest/gtest.h>

namespace kelvarin
{
namespace
{

using test::equations;

std::string text_of(const leq_problem::refusal& refused)
{
    return refused ? refused->text : std::string();
}

leq_problem problem_of(const leq_content& content)
{
    leq_problem problem;
    problem.init_grids(content.count());
    for (int row = 0; row < content.count(); ++row)
        for (int column = 0; column <= content.count(); ++column)
            problem.set_cell(row, column, content.cell(row, column));
    return problem;
}

TEST(LeqProblem, AnotherNumberOfEquationsKeepsWhatFitsAndMovesBeta)
{
    leq_problem problem = problem_of(equations({{"1", "2", "3"}, {"4", "5", "6"}}));
    ASSERT_EQ(text_of(problem.rename_variable(0, "x3")), "");
    problem.init_grids(3);
    leq_content larger = equations({{"1", "2", "", "3"}, {"4", "5", "", "6"}, {"", "", "", ""}});
    // The default name of the third column is taken.
    larger.names = {"x3", "x2", "x3_"};
    EXPECT_EQ(problem.content(), larger);
    problem.init_grids(2);
    EXPECT_EQ(problem.content().cells, equations({{"1", "2", "3"}, {"4", "5", "6"}}).cells);
    EXPECT_EQ(problem.content().names, (std::vector<std::string>{"x3", "x2"}));
    EXPECT_TRUE(problem.undo());
    EXPECT_EQ(problem.content(), larger);
    EXPECT_EQ(problem.undo_step(), "Number of equations");
}

TEST(LeqProblem, RenamingHasItsRefusals)
{
    leq_problem problem = problem_of(equations({{"1", "2", "3"}, {"4", "5", "6"}}));
    const test::table<int, std::string, std::string> cases = {
        {0, " u_1 ", ""},
        {0, "u_1", ""},
        {1, "u_1", "u_1 is already defined for different column."},
        {1, "2x", "2x is not a valid variable name."},
        {1, "a b", "a b is not a valid variable name."},
        {1, "a,b", "a,b is not a valid variable name."},
        {1, "", " is not a valid variable name."},
        {1, "U_1", ""},
    };
    for (const auto& [column, name, box] : cases)
        EXPECT_EQ(text_of(problem.rename_variable(column, name)), box) << name;
    EXPECT_EQ(problem.content().names, (std::vector<std::string>{"u_1", "U_1"}));
}

TEST(LeqProblem, FillsEmptyCellsAndOnlyThose)
{
    leq_problem problem = problem_of(equations({{"1", "", "abc"}, {"", "5", ""}}));
    problem.fill_empty_cells_with_zeros();
    EXPECT_EQ(problem.content().cells, equations({{"1", "0", "abc"}, {"0", "5", "0"}}).cells);
    problem.fill_empty_cells_with_zeros();
    EXPECT_EQ(problem.undo_step(), "Fill with zeros");
}

TEST(LeqProblem, ReadsTheRecoveryTextOfAnEarlierVersionWithAllItsCells)
{
    const auto text = [](const std::string& names, const std::string& cells) {
        return "{\"cells\": [" + cells + "], \"format\": 1, \"names\": [" + names + "], \"title\": \"t\"}";
    };
    leq_content content = equations({{"1", "2", "3"}, {"4", "5", "6"}});
    content.title = "t";
    content.names = {"a", "b"};
    EXPECT_EQ(read_leq_recovery(text(R"("a", "b")", R"("1", "2", "3", "4", "5", "6")")), content);
    EXPECT_FALSE(read_leq_recovery(text(R"("a")", R"("1", "2")")));
    EXPECT_FALSE(read_leq_recovery(text(R"("a", "b")", R"("1", "2", "3", "4", "5")")));
    EXPECT_FALSE(read_leq_recovery(text(R"("a", "b")", R"("1", "2", "3", "4", "5", "6", "7")")));
}

} // namespace
} // namespace kelvarin
