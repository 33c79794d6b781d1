// SPDX-License-Identifier: MIT
#include "nle/nle_problem.h"
#include "nle/nle_recovery.h"
#include "nle/nle_samples.h"
#include "support/equation_rows.h"
#include "support/nle_runs.h"
#include "support/scratch_folder.h"
#include "support/table.h"

#include <gtest/gtest.h>

#include <array>
#include <functional>

namespace kelvarin
{
namespace
{

using test::explicit_row;
using test::implicit_row;

nle_problem problem_of(const nle_content& content)
{
    nle_problem problem;
    problem.load_example(content);
    return problem;
}

/// The problem as every window knows it.
problem_document& document_of(nle_problem& problem)
{
    return problem;
}

} // namespace

TEST(NleRecovery, ReadsTheTextOfAnEarlierVersionWithAMethodThatThereIs)
{
    const auto text = [](const std::string& method) {
        return R"({"format": 1, "lower_bound": "not yet", "method": )" + method +
               R"(, "rows": [{"comment": "c", "equation": "f(x) = x", "guess": "7 ap"}], "title": "t", )" +
               R"("upper_bound": ""})";
    };
    nle_content content = test::single_of({{"f(x) = x", "7 ap", "c"}}, "not yet", "", nle_method::constrained);
    content.title = "t";
    EXPECT_EQ(read_nle_recovery(text("3")), content);
    for (const char* method : {"4", "-1", "\"0\"", "1.0"})
        EXPECT_FALSE(read_nle_recovery(text(method))) << method;
}

TEST(NleDocument, EveryStepHasItsName)
{
    nle_problem problem = problem_of(test::system_of({implicit_row("x", "x - a"), explicit_row("a", "1")}));
    for (const auto& [name, take] : test::table<const char*, std::function<void()>>{
             {"Add equation", [&] { problem.put_explicit("b", "2", ""); }},
             {"Add equation", [&] { problem.put_implicit("y", "y", "1", 0, ""); }},
             {"Edit equation", [&] { problem.put_explicit("b", "3", "", 3); }},
             {"Move equation", [&] { problem.move(std::array{2}, true); }},
             {"Edit comment", [&] { problem.set_comment(1, "c"); }},
             {"Remove equation", [&] { problem.remove(std::array{4}); }},
             {"Change bounds", [&] { problem.set_bounds("1", "2"); }},
             {"Choose method", [&] { problem.choose_method(nle_method::safenewt); }},
             {"Rename variable", [&] { problem.rename_variable("a", "c"); }},
             {"Load example", [&] { problem.load_example(nle_samples()[0]); }}}) {
        SCOPED_TRACE(name);
        const nle_content before = problem.content();
        take();
        EXPECT_NE(problem.content(), before);
        EXPECT_EQ(problem.undo_step(), name);
    }
}

TEST(NleDocument, AMethodAloneIsNothingToLose)
{
    nle_problem problem;
    problem.choose_method(nle_method::safenewt);
    EXPECT_TRUE(problem.is_blank());
    ASSERT_FALSE(problem.put_explicit("a", "1", ""));
    EXPECT_FALSE(problem.is_blank());
}

TEST(NleDocument, PrintsRowsWithTheirGuessesCommentsAndBounds)
{
    const test::scratch_folder folder;
    nle_content content = test::single_of({{"f(x) = x - a", "1.5 p", " unknown "}, explicit_row("a", "2")}, "1", "2");
    nle_problem problem = problem_of(content);
    const std::string rows = "\n[1] f(x) = x - a\n    Initial guess: 1.5 p\n    unknown\n"
                             "[2] a = 2\n    Initial guess: n.a.\n";
    EXPECT_EQ(document_of(problem).printed_listing(),
              "Kelvarin NLE Program\nFile: \n" + rows + "\nLower limit: 1\nUpper limit: 2\n");
    std::filesystem::create_directory("sub");
    ASSERT_FALSE(problem.save("sub/p.kvr"));
    ASSERT_FALSE(problem.put_implicit("y", "y", "1", 0, ""));
    EXPECT_EQ(problem.printed_listing(),
              "Kelvarin NLE Program\nFile: p.kvr\n" + rows + "[3] f(y) = y\n    Initial guess: 1\n");
}

} // namespace kelvarin
