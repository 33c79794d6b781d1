// SPDX-License-Identifier: MIT
#include "leq/leq_problem.h"
#include "support/leq_problems.h"
#include "support/scratch_folder.h"

#include <gtest/gtest.h>
#include <rapidcheck.h>

#include <cerrno>

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
    struct row
    {
        int column;
        std::string name;
        std::string box;
    };
    const std::vector<row> cases = {
        {0, " u_1 ", ""},
        {0, "u_1", ""},
        {1, "u_1", "u_1 is already defined for different column."},
        {1, "2x", "2x is not a valid variable name."},
        {1, "a b", "a b is not a valid variable name."},
        {1, "a,b", "a,b is not a valid variable name."},
        {1, "", " is not a valid variable name."},
        {1, "U_1", ""},
    };
    for (const row& given : cases) {
        SCOPED_TRACE(given.name);
        EXPECT_EQ(text_of(problem.rename_variable(given.column, given.name)), given.box);
    }
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

TEST(LeqProblem, CutPasteAndClearActOnTheSelection)
{
    leq_problem problem = problem_of(equations({{"1", "2", "3"}, {"4", "5", "6"}}));
    EXPECT_EQ(problem.copy({0, 1, 2, 2}), "2\t3\n5\t6");
    EXPECT_EQ(problem.cut({0, 0, 2, 1}), "1\n4");
    EXPECT_EQ(problem.content().cells, equations({{"", "2", "3"}, {"", "5", "6"}}).cells);
    EXPECT_EQ(text_of(problem.paste({1, 1, 1, 1}, read_block("7\t8\t9"))),
              "1 pasted cell lies outside the grid and was left out: '9'.");
    EXPECT_EQ(problem.content().cells, equations({{"", "2", "3"}, {"", "7", "8"}}).cells);
    problem.clear_cells({0, 0, 2, 3});
    EXPECT_EQ(problem.undo_step(), "Clear");
    EXPECT_TRUE(problem.is_blank());
}

TEST(LeqProblem, FilesMoveThePathAndTheCleanMark)
{
    const test::scratch_folder folder;
    leq_problem problem = problem_of(equations({{"1", "2", "3"}, {"4", "5", "6"}}));
    EXPECT_FALSE(problem.problem_saved());
    EXPECT_EQ(text_of(problem.save("a.kvr")), "");
    EXPECT_TRUE(problem.problem_saved());
    EXPECT_EQ(problem.path(), "a.kvr");

    leq_problem other;
    EXPECT_EQ(text_of(other.leq_open("a.kvr")), "");
    EXPECT_EQ(other.content(), problem.content());
    EXPECT_EQ(text_of(other.leq_open("missing.kvr")), "Error while trying to open file.");
    EXPECT_EQ(text_of(other.leq_open(folder.write("b.kvr", "T\n64\n1\t"))), "Error while trying to open file.");
    EXPECT_EQ(other.content(), problem.content());
    EXPECT_EQ(other.path(), "a.kvr");

    save_calls full_disk = system_save_calls();
    full_disk.write = [](int, const void*, std::size_t) -> ssize_t {
        errno = ENOSPC;
        return -1;
    };
    problem.set_cell(0, 0, "9");
    EXPECT_EQ(text_of(problem.save("a.kvr", false, full_disk)), "Error while trying to save file.");
    EXPECT_FALSE(problem.problem_saved());
    ASSERT_TRUE(problem.undo());
    problem.load_sample(1);
    EXPECT_TRUE(problem.path().empty());
    EXPECT_EQ(problem.title(), "Sample random problem");
    ASSERT_TRUE(problem.undo());
    EXPECT_EQ(problem.path(), "a.kvr") << "the saved content came back without its file";
}

TEST(LeqProblem, RecoveryBringsEverythingBack)
{
    leq_problem problem = problem_of(equations({{"1", "x\"y", ""}, {"4", "5", "\xC3\xA9"}}));
    problem.set_title(" a\ttitle ");
    ASSERT_EQ(text_of(problem.rename_variable(1, "w")), "");
    leq_problem other;
    ASSERT_TRUE(other.restore(problem.recovery_text(), "a.kvr"));
    EXPECT_EQ(other.content(), problem.content());
    EXPECT_EQ(other.title(), "a title");
    EXPECT_EQ(other.path(), "a.kvr");
    EXPECT_FALSE(other.problem_saved());
    for (const std::string text : {"", "{}", "[]", R"({"format":1,"title":"","names":["a"],"cells":["1","2"]})",
                                   R"({"format":1,"title":"","names":["a","b"],"cells":["1","2"]})",
                                   R"({"format":2,"title":"","names":["a","b"],"cells":["1","2","3","4","5","6"]})"}) {
        EXPECT_FALSE(other.restore(text, "")) << text;
    }
}

TEST(LeqProblem, UndoTakesEverythingBackAndRedoBringsItAgain)
{
    EXPECT_TRUE(rc::check("any operations", [] {
        leq_problem problem;
        const leq_content first = problem.content();
        for (int steps = *rc::gen::inRange(1, 12); steps > 0; --steps) {
            switch (*rc::gen::inRange(0, 7)) {
            case 0:
                problem.set_cell(0, *rc::gen::inRange(0, 3), *rc::gen::element<std::string>("", "1", "2"));
                break;
            case 1:
                problem.init_grids(*rc::gen::inRange(2, 6));
                break;
            case 2:
                problem.fill_empty_cells_with_zeros();
                break;
            case 3:
                problem.rename_variable(1, *rc::gen::element<std::string>("a", "x1", "3"));
                break;
            case 4:
                problem.paste({1, 1, 1, 1}, {{"1", "2"}, {"3", "4"}});
                break;
            case 5:
                problem.clean_grid();
                break;
            default:
                problem.load_sample(static_cast<std::uint32_t>(steps));
            }
        }
        const leq_content last = problem.content();
        while (problem.undo())
            ;
        RC_ASSERT(problem.content() == first);
        RC_ASSERT(problem.problem_saved());
        while (problem.redo())
            ;
        RC_ASSERT(problem.content() == last);
    }));
}

} // namespace
} // namespace kelvarin
