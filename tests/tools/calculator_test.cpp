// SPDX-License-Identifier: MIT
#include "tools/calculator.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace kelvarin
{
namespace
{

TEST(CalculatorLine, SplitsAtTheFirstEqualSignOnly)
{
    struct row
    {
        std::string line, target, expression;
    };
    const std::vector<row> rows = {
        {"1+2", "", "1+2"},
        {"  1+2  ", "", "1+2"},
        {"x = 2*3", "x", "2*3"},
        {"x=2\t*\r\n3", "x", "2 *  3"},
        {"x = y = 3", "x", "y = 3"},
        {"a == b", "a", "= b"},
        {"a => b", "a", "> b"},
        {"a =< b", "a", "< b"},
        {"a === b", "a", "== b"},
        {"a >= b", "", "a >= b"},
        {"a <= b", "", "a <= b"},
        {"(a == b)", "", "(a == b)"},
        {"a+0 == b", "", "a+0 == b"},
        {"1 == a", "", "1 == a"},
        {"3 => a", "", "3 => a"},
        {"2x = 3", "", "2x = 3"},
        {"= 5", "", "5"},
        {"== 5", "", "= 5"},
        {"= = 5", "", "= 5"},
        {"sin = 3", "sin", "3"},
        {"if=1 then 2 else 3", "if", "1 then 2 else 3"},
        {"x =", "x", ""},
        {"", "", ""},
        {" \t ", "", ""},
    };
    for (const row& expected : rows) {
        SCOPED_TRACE(expected.line);
        const calculator_line read = read_calculator_line(expected.line);
        EXPECT_EQ(read.target, expected.target);
        EXPECT_EQ(read.expression, expected.expression);
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
    struct row
    {
        std::string line, title, message;
    };
    const std::vector<row> rows = {
        {"a = 1 +", "Kelvarin Guide", ""},
        {"a = pi", "Kelvarin Guide", "Syntax Error: variable name not defined 'pi'"},
        {"a = 1/0", "Expression Parsing Error", ""},
        {"a = (1) (2)", "Fatal Error", ""},
        {"a => 2", "Expression Parsing Error", "Expression Parsing Error: Subscript out of range"},
    };
    for (const row& expected : rows) {
        SCOPED_TRACE(expected.line);
        calculator tool;
        tool.solve_line("a = 4");
        const calculator_answer answer = tool.solve_line(expected.line);
        EXPECT_FALSE(answer.value);
        EXPECT_EQ(answer.variable, "");
        ASSERT_TRUE(answer.refusal);
        EXPECT_EQ(answer.refusal->title, expected.title);
        EXPECT_EQ(answer.refusal->fatal, expected.title == "Fatal Error");
        EXPECT_NE(answer.refusal->text, "");
        if (!expected.message.empty()) {
            EXPECT_EQ(answer.refusal->text, expected.message);
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
    struct row
    {
        std::string line, marked;
    };
    const std::vector<row> rows = {
        {"zz", "zz"},
        {"  a = 1 + zz", "zz"},
        {"\n\ta\n=\n2*\nzz", "zz"},
        {"2y = 3", "2y"},
    };
    const calculator tool;
    for (const row& expected : rows) {
        SCOPED_TRACE(expected.line);
        const auto fault = tool.fault_of(expected.line);
        ASSERT_TRUE(fault && fault->place);
        EXPECT_EQ(expected.line.substr(fault->place->offset, fault->place->length), expected.marked);
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

} // namespace
} // namespace kelvarin
