// SPDX-License-Identifier: MIT
#include "batch_call.h"

#include <gtest/gtest.h>

namespace kelvarin
{
namespace
{

struct eval_row
{
    std::string line;
    std::optional<double> value;
    std::string variable;
    std::string message;
};

eval_row gives(std::string line, double value, std::string variable = "")
{
    return {std::move(line), value, std::move(variable), ""};
}

eval_row fails(std::string line, std::string message)
{
    return {std::move(line), std::nullopt, "", std::move(message)};
}

/// All lines in one call: each depends on those above it. Values are worked out by hand.
TEST(Eval, LinesAreTakenInOrderAndShareTheirVariables)
{
    const std::vector<eval_row> rows = {
        gives("x = 2*3", 6, "x"),
        gives("x+1", 7),
        gives("x = x + 1", 7, "x"),
        // Operands of equal priority are taken from the left; a sign in front is a subtraction from 0.
        gives("2^3^2", 64),
        gives("-2^2", -4),
        gives("-2+3", 1),
        gives("8/4/2", 1),
        gives("2*(-x)", -14),
        fails("2*-x", "Syntax Error: two operators in sequence not allowed; * -"),
        fails("--2", "Syntax Error: two operators in sequence not allowed; - -"),
        fails("-h", "Syntax Error: variable name not defined 'h'"),
        fails("", "Syntax Error: No expression entered."),
        // What is split at its first "=", and what is a comparison.
        gives("= 5", 5),
        gives("(x == 7)", 1),
        gives("x >= 8", 0),
        gives("7 == x", 1),
        gives("sin = 3", 3, "sin"),
        gives("sin(0)", 0),
        fails("x => 7", "Expression Parsing Error: Subscript out of range"),
        fails("1 +", "Syntax Error: "),
        fails("pi", "Syntax Error: variable name not defined 'pi'"),
        // A line that fails keeps the old value.
        fails("x = 1/0", "Error: "),
        gives("x", 7),
        fails("ln(0-1)", "Error: "),
        fails("sqrt(0-1)", "Error: sqrt() of negative number not allowed.\rsqrt("),
        fails("1e200*1e200/1e200", "Error 6: "),
        gives("1e-200*1e-200", 0),
        gives("1d3", 1000),
        fails("1d-3", "Syntax Error: "),
        fails("1e400", "Syntax Error: "),
        gives("if x > 5 then 1 else 2", 1),
        gives("1+if 1 then 2 else 3", 3),
        gives("fact(2.5)", 2),
        gives("fact(3.5)", 24),
        gives("y\t=\n1", 1, "y"),
        fails("(1) (2)", ""),
    };
    std::vector<std::string> arguments = {"--eval"};
    for (const eval_row& row : rows)
        arguments.push_back(row.line);
    test::batch_call call;
    const test::batch_result result = call(arguments);
    EXPECT_EQ(result.status, 1);
    const json answers = result.as_json();
    ASSERT_EQ(answers.size(), rows.size());
    for (std::size_t i = 0; i < rows.size(); ++i) {
        SCOPED_TRACE(rows[i].line);
        const json& answer = answers[i];
        const std::string message = answer["message"];
        EXPECT_EQ(answer["line"], rows[i].line);
        EXPECT_EQ(answer["ok"], rows[i].value.has_value()) << message;
        EXPECT_EQ(answer["value"], rows[i].value ? json(*rows[i].value) : json(nullptr));
        EXPECT_EQ(answer["variable"], rows[i].variable);
        EXPECT_EQ(message.empty(), rows[i].value.has_value());
        EXPECT_EQ(message.substr(0, rows[i].message.size()), rows[i].message);
    }
}

TEST(Eval, ValuesHaveTheDigitsThatGiveTheSameDoubleBack)
{
    test::batch_call call;
    const test::batch_result result = call({"--eval", "1/3", "0.1", "1e300"});
    EXPECT_EQ(result.status, 0);
    EXPECT_NE(result.out.find("0.3333333333333333,"), std::string::npos) << result.out;
    EXPECT_NE(result.out.find("\"value\": 0.1,"), std::string::npos);
    EXPECT_NE(result.out.find("1e+300"), std::string::npos);
    EXPECT_EQ(result.as_json()[0]["value"].get<double>(), 1.0 / 3.0);
}

TEST(Eval, OptionsBehindEvalAreLines)
{
    test::batch_call call;
    const test::batch_result result = call({"--format", "json", "--eval", "2", "--format", "-o", "x"});
    EXPECT_EQ(result.status, 1);
    ASSERT_EQ(result.as_json().size(), 4u);
    EXPECT_EQ(result.as_json()[2]["line"], "-o");
}

TEST(Eval, TheGeneratorStartsAlike)
{
    test::batch_call call;
    EXPECT_EQ(call({"--eval", "rand(1)", "rand(1)"}).out, call({"--eval", "rand(1)", "rand(1)"}).out);
}

} // namespace
} // namespace kelvarin
