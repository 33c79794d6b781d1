// SPDX-License-Identifier: MIT
#include "support/table.h"
#include "tools/calculator.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace kelvarin::test
{

TEST(CalculatorLine, SplitsAtTheFirstEqualSignOnly)
{
    using lines = std::vector<std::pair<std::string, std::string>>;
    const table<std::string, lines> targets = {
        {"",
         {{"1+2", "1+2"}, {"  1+2  ", "1+2"}, {"a >= b", "a >= b"}, {"a <= b", "a <= b"}, {"(a == b)", "(a == b)"}}},
        {"", {{"a+0 == b", "a+0 == b"}, {"1 == a", "1 == a"}, {"3 => a", "3 => a"}, {"2x = 3", "2x = 3"}}},
        {"", {{"= 5", "5"}, {"== 5", "= 5"}, {"= = 5", "= 5"}, {"", ""}, {" \t ", ""}}},
        {"a", {{"a == b", "= b"}, {"a => b", "> b"}, {"a =< b", "< b"}, {"a === b", "== b"}}},
        {"x", {{"x = 2*3", "2*3"}, {"x=2\t*\r\n3", "2 *  3"}, {"x = y = 3", "y = 3"}, {"x =", ""}}},
        {"sin", {{"sin = 3", "3"}}},
        {"if", {{"if=1 then 2 else 3", "1 then 2 else 3"}}},
    };
    for (const auto& [target, read] : targets)
        for (const auto& [line, expression] : read) {
            SCOPED_TRACE(line);
            EXPECT_EQ(read_calculator_line(line).target, target);
            EXPECT_EQ(read_calculator_line(line).expression, expression);
        }
}

TEST(Calculator, ALineSeesWhatTheLinesBeforeItStored)
{
    calculator tool;
    EXPECT_EQ(tool.solve_line("x = 2*3").value, 6.0);
    EXPECT_EQ(tool.solve_line("x+1").value, 7.0);
    EXPECT_EQ(tool.solve_line("y = x - 1").variable, "y");
    EXPECT_EQ(tool.solve_line("x = x + 1").value, 7.0);
    EXPECT_EQ(tool.solve_line("x*y").value, 35.0);
    EXPECT_EQ(tool.variables().get_all_vars(), (std::vector<std::string>{"y", "x"}));
}

TEST(Calculator, ALineThatFailsAssignsNothing)
{
    const table<std::string, std::string, std::string> rows = {
        {"a = 1 +", "Kelvarin Guide", ""},
        {"a = pi", "Kelvarin Guide", "Syntax Error: variable name not defined 'pi'"},
        {"a = 1/0", "Expression Parsing Error", ""},
        {"a = (1) (2)", "Fatal Error", ""},
        {"a => 2", "Expression Parsing Error", "Expression Parsing Error: Subscript out of range"},
    };
    for (const auto& [line, title, message] : rows) {
        SCOPED_TRACE(line);
        calculator tool;
        tool.solve_line("a = 4");
        const calculator_answer answer = tool.solve_line(line);
        EXPECT_FALSE(answer.value);
        EXPECT_EQ(answer.variable, "");
        ASSERT_TRUE(answer.refusal);
        EXPECT_EQ(answer.refusal->title, title);
        EXPECT_EQ(answer.refusal->fatal, title == "Fatal Error");
        EXPECT_NE(answer.refusal->text, "");
        if (!message.empty()) {
            EXPECT_EQ(answer.refusal->text, message);
        }
        EXPECT_EQ(tool.variables().get_var("a"), 4.0);
        EXPECT_EQ(tool.solve_line("a+1").value, 5.0) << "a failure must not reach the next line";
    }
}

TEST(Calculator, AWordOfTheLanguageCanBeATarget)
{
    calculator tool;
    const calculator_answer stored = tool.solve_line("sin = 3");
    EXPECT_EQ(stored.value, 3.0);
    EXPECT_EQ(stored.variable, "sin");
    EXPECT_EQ(tool.solve_line("= 5").variable, "") << "without a name nothing is assigned";
}

TEST(Calculator, TellsWhereInTheLineAFaultIs)
{
    const table<std::string, std::string> rows = {
        {"zz", "zz"}, {"  a = 1 + zz", "zz"}, {"\n\ta\n=\n2*\nzz", "zz"}, {"2y = 3", "2y"}};
    const calculator tool;
    for (const auto& [line, marked] : rows) {
        SCOPED_TRACE(line);
        const auto fault = tool.fault_of(line);
        ASSERT_TRUE(fault && fault->place);
        EXPECT_EQ(line.substr(fault->place->offset, fault->place->length), marked);
    }
    for (const char* fine : {"", "  ", "a = 1 + 2", "rand(1)"})
        EXPECT_FALSE(tool.fault_of(fine)) << fine;
    EXPECT_EQ(tool.fault_of("a =")->message.rfind("Syntax Error: ", 0), 0U);
}

TEST(Calculator, SetsAVariableToNumbersOnly)
{
    calculator tool;
    tool.solve_line("a = 4");
    tool.solve_line("b = 5");
    for (const char* no_number : {"", "abc", "1,5", "2*3", "0x10", "1e999"}) {
        SCOPED_TRACE(no_number);
        EXPECT_TRUE(tool.set_variable("a", no_number));
        EXPECT_EQ(tool.variables().get_var("a"), 4.0);
    }
    EXPECT_FALSE(tool.set_variable("a", " -1.5e2 "));
    EXPECT_EQ(tool.variables().get_var("a"), -150.0);
    EXPECT_EQ(tool.variables().get_all_vars(), (std::vector<std::string>{"a", "b"})) << "it keeps its place";
}

} // namespace kelvarin::test
