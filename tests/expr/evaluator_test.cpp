// SPDX-License-Identifier: MIT
#include "expr/basParse.h"
#include "support/calculator_lines.h"
#include "support/table.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <string>
#include <vector>

namespace kelvarin
{
namespace
{

using test::solve_text;

TEST(Evaluator, FollowsPrioritiesFromTheLeft)
{
    const test::table<std::string, double> operators = {
        {"2^3^2", 64},         {"-2^2", -4},        {"2*(-3)", -6},   {"-(2+3)", -5},       {"1-2-3", -4},
        {"12/3/2", 2},         {"-2+3", 1},         {"-2*3", -6},     {"0^0", 1},           {"(-2)^3", -8},
        {"1>0 or 0", 1},       {"2 and 0 or 3", 1}, {"(3>2)*5", 5},   {"1<2<3", 1},         {"3>2>1", 0},
        {"1+2>2 and 4<>5", 1}, {"1 = = 1", 1},      {"3=>3", 1},      {"3=<2", 0},          {"3><3", 0},
        {"(((7)))", 7},        {"1e-400", 0},       {"10^(-400)", 0}, {"1e-200*1e-200", 0}, {"exp(-1000)", 0},
        {"tanh(1e-17)", 0}};
    const test::table<std::string, double> conditionals = {{"1+if 1 then 2 else 3", 3},
                                                           {"2*if 1 then 3 else 4 + 1", 7},
                                                           {"if 1 then 2 else 3 + 10", 2},
                                                           {"if 0 then 1 else if 0 then 2 else 3", 3},
                                                           {"if 1 then if 0 then 5 else 6 else 7", 6},
                                                           {"IF 0 THEN 1 ELSE 2", 2},
                                                           {"2*(if 2>1 then 4 else 5)", 8},
                                                           {"if 1/(-1e308)/1e308 then 1 else 2", 2}};
    for (const auto& cases : {operators, conditionals})
        for (const auto& [text, value] : cases) {
            const solved_expression solved = solve_text(text);
            EXPECT_TRUE(solved.ok) << text << ": " << solved.message;
            EXPECT_EQ(solved.value, value) << text;
        }
}

/// Values to 15 digits from tables ([AbramowitzStegun1972], NIST's digital library) unless they are exact.
TEST(Functions, GiveTheirTabulatedValues)
{
    const std::vector<std::pair<std::string, double>> cases = {
        {"erf(0.5)", 0.520499877813047},    {"erf(-2)", -0.995322265018953},  {"erf(4)", 0.999999984582742},
        {"psi(0.5)", -1.96351002602142},    {"psi(10)", 2.25175258906672},    {"psi(0.25)", -4.22745353337627},
        {"psi(-0.5)", 0.0364899739785765},  {"psi(1e9)", 20.7232658364466},   {"arccosh(3)", 1.76274717403909},
        {"arcsin(0.5)*2", 1.0471975511966}, {"cosech(2)", 0.275720564771783}, {"sinh(2)", 3.62686040784702}};
    for (const auto& [text, value] : cases) {
        const solved_expression solved = solve_text(text);
        EXPECT_TRUE(solved.ok) << text << ": " << solved.message;
        EXPECT_NEAR(solved.value, value, 2e-11 * std::max(1.0, std::fabs(value))) << text;
    }
}

TEST(Functions, KeepTheirDeliberateOddities)
{
    const std::vector<std::pair<std::string, double>> exact = {
        {"srq(4)", 0},      {"arccos(0)", 1.5708}, {"arccotan(0)", 1.5708}, {"int(log(1000))", 2}, {"int(cbrt(64))", 3},
        {"fact(2.5)", 2},   {"fact(3.5)", 24},     {"fact(-3)", 1},         {"fact(0)", 1},        {"round(2.5)", 2},
        {"round(3.5)", 4},  {"round(-0.5)", 0},    {"frac(-1.5)", 0.5},     {"frac(2.25)", 0.25},  {"fix(-1.5)", -1},
        {"psi(-3)", 1e300}, {"psi(0)", 1e300}};
    for (const auto& [text, value] : exact)
        EXPECT_EQ(solve_text(text).value, value) << text << ": " << solve_text(text).message;
    // atn(2/sqrt 3) = 0.857071947850130988; a whole negative half turn is short by 7e-6.
    EXPECT_NEAR(solve_text("arcsec(-2)").value, -0.857071947850131 - 1.5708, 1e-14);
    EXPECT_NEAR(solve_text("arccosec(-2)").value, -0.857071947850131 - 3.1416, 1e-14);
    EXPECT_NEAR(solve_text("arcsec(2)").value, 0.857071947850131, 1e-14);
}

TEST(Evaluator, TellsEachFailureLetterForLetter)
{
    using texts = std::vector<std::string>;
    const std::string zero = "Error: Zero denominator not allowed.\r";
    const std::string subscript = "Expression Parsing Error: Subscript out of range";
    const test::table<std::string, texts> cases = {
        {zero + "1 / 0", {"1/0", "1>0 or 1/0", "ln(1/0)", "(1/0)^(-1)"}},
        {zero + "(2 + 3) / (1 - 1)", {"(2+3)/(1-1)"}},
        {zero + "1 / exp(-1000)", {"1/exp(-1000)"}},
        {zero + "sec(0) / sin(0)", {"sec(0)/sin(0)"}},
        {"Error: Fractional exponent with negative mantissa not allowed.\r-8 ^ (1 / 3)", {"(-8)^(1/3)"}},
        {"Error: Negative exponent with zero mantissa not allowed. \r0 ^ -1", {"0^(-1)"}},
        {"Error: ln() of negative number not allowed.\rln(0)", {"ln(0)"}},
        {"Error: ln() of negative number not allowed.\rln((0 - 1))", {"ln(0-1)"}},
        {"Error: ln() of negative number not allowed.\rln(-1)", {"ln(-1) + 1/0"}},
        {"Error: log() of negative number not allowed.\rlog(-1E-07)", {"log(-1e-7)"}},
        {"Error: sqr() of negative number not allowed.\rsqr(-1)", {"sqr(-1)"}},
        {"Error: sqrt() of negative number not allowed.\rsqrt(if ((1 => 0)) then (-4) else (2))",
         {"sqrt(if 1 => 0 then -4 else 2)"}},
        {"Error 6: Overflow",
         {"exp(1000)", "1e200*1e200/1e200", "1e308+1e308-1e308", "0-1e308-1e308", "1e308/1e-5", "(-1e200)^2",
          "rand(1e39)"}},
        {subscript, {"(or)", "(1+)", "+1", "1 >", "1 or +2", "(if 1 then 2 else)"}},
        {"Error: Variable OR is empty", {"(OR)"}},
    };
    for (const auto& [message, refused] : cases)
        for (const std::string& text : refused) {
            SCOPED_TRACE(text);
            const solved_expression solved = solve_text(text);
            EXPECT_FALSE(solved.ok);
            EXPECT_FALSE(solved.fatal);
            EXPECT_EQ(solved.message, message);
        }
}

TEST(Functions, FailAtRunTimeWithTheNumberOfTheFirstFault)
{
    const std::vector<std::pair<int, std::vector<std::string>>> cases = {
        {5,
         {"cbrt(-8)", "arcsin(2)", "arccosh(0.5)", "arccosh(-2)", "arcsech(2)", "arcsech(-0.5)", "arctanh(-1)",
          "arctanh(2)", "arcsinh(-1e10)", "arccotanh(0.5)", "arccotanh(-1)", "arcsec(0.5)"}},
        {6,
         {"sech(1000)", "cosech(1000)", "tanh(710)", "tanh(-710)", "sinh(710)", "cosh(800)", "coth(1000)",
          "arcsinh(1e200)", "erf(1e200)", "fact(171)/fact(171)", "fact(40000)", "fact(-40000)", "exp2(2000)",
          "exp10(309)", "psi(1e200)", "arcsec(1e200)", "arccosec(1e200)", "arcsech(1e200)", "cosec(1e-310)"}},
        {11,
         {"cosec(0)", "cotan(0)", "arcsin(1)", "arccos(1)", "arccos(-1)", "coth(1e-17)", "cosech(1e-17)", "arcsec(1)",
          "arccosec(-1)", "arctanh(1)", "arccotanh(1)", "arcsech(0)", "arccosech(0)"}}};
    const std::vector<std::pair<int, std::string>> texts = {{5, "Error 5: Invalid procedure call or argument"},
                                                            {6, "Error 6: Overflow"},
                                                            {11, "Error 11: Division by zero"}};
    for (std::size_t i = 0; i < cases.size(); ++i)
        for (const std::string& text : cases[i].second)
            EXPECT_EQ(solve_text(text).message, texts[i].second) << text;
}

/// Both forms of a formula have to agree on what fails, and on every bit of what does not.
TEST(Functions, FastAndCarefulFormulasAgree)
{
    std::vector<double> arguments = {
        0.0,  -0.0,  5e-324, 1e-310, 1e-17, 0.5,   1.0,     1.5,   2.0,     3.5,
        10.0, 709.5, 710.0,  1e5,    1e10,  1e154, 1.4e154, 1e200, 1.7e308, std::numeric_limits<double>::max()};
    for (double x = 0.01; x < 50.0; x += 0.37)
        arguments.push_back(x);
    for (const operation_row& row : operation_rows()) {
        if (row.value == nullptr) continue;
        for (const double magnitude : arguments)
            for (const double x : {magnitude, -magnitude}) {
                SCOPED_TRACE(testing::Message() << row.spelling << "(" << x << ")");
                const double fast = row.value(x);
                const checked_value careful = row.checked(x);
                EXPECT_EQ(std::isfinite(fast), careful.failure == 0);
                if (std::isfinite(fast)) {
                    EXPECT_EQ(fast, careful.value);
                }
            }
    }
}

TEST(Operations, EveryRowsExampleHasItsValueAndPrintsBack)
{
    for (const operation_row& row : operation_rows().subspan(1)) {
        SCOPED_TRACE(row.example);
        clsParse store;
        evaluation_context context;
        const solved_expression solved = solve_text(row.example, store, context);
        EXPECT_TRUE(solved.ok) << solved.message;
        EXPECT_NEAR(solved.value, row.example_value, 1e-11 * std::max(1.0, std::fabs(row.example_value)));
        const built_tree built = build_tree(scan_tokens(row.example), store);
        const std::string printed = tree_to_text(built.tree, expression_tree::root, store);
        EXPECT_NE(printed.find(row.spelling), std::string::npos);
    }
}

TEST(Evaluator, EndsFatallyWhereNoRuleCoversACheckedText)
{
    for (const char* text : {"(1) (2)", "sin(1) (2)", "1) + (2", "1 OR 0", "1 if 2 then 3 else 4",
                             "2*if 1>0 then 1 else 2", "IF (IF 1 THEN 2 ELSE 3) THEN 4 ELSE 5"}) {
        SCOPED_TRACE(text);
        const solved_expression solved = solve_text(text);
        EXPECT_TRUE(solved.fatal);
        EXPECT_EQ(solved.message, "Internal error found ! Please contact KELVARIN support personal.");
    }
}

TEST(Builder, Takes200NodesAndNoMore)
{
    std::string sum = "1";
    for (int i = 1; i < 100; ++i)
        sum += "+1";
    EXPECT_EQ(solve_text(sum).value, 100.0); // 199 nodes
    EXPECT_EQ(solve_text("-(" + sum + ")").message, "Expression could not be parsed.");
    EXPECT_EQ(solve_text("sin(" + sum + ")").ok, true);                                    // 200
    EXPECT_EQ(solve_text("1/0*(" + sum + ")").message, "Expression could not be parsed."); // before any evaluation
}

TEST(Builder, DropsParenthesesAtNoCost)
{
    for (const std::size_t depth : {2000u, 16000u})
        EXPECT_EQ(solve_text(std::string(depth, '(') + "7" + std::string(depth, ')')).value, 7.0);
}

TEST(Evaluator, TheFirstFailureStaysUntilItIsCleared)
{
    clsParse store;
    evaluation_context context;
    store.modify_add_var_value("x", 0.0);
    const auto compiled = [&](const char* text) { return build_tree(scan_tokens(text), store).tree; };
    const expression_tree before = compiled("5 + ln(-1)");
    const expression_tree behind = compiled("ln(-1) + 5");
    EXPECT_EQ(evaluate_tree(before, 1, store, context), 5.0); // what was evaluated before the failure keeps its value
    EXPECT_TRUE(context.eval_error_flag());
    EXPECT_EQ(evaluate_tree(compiled("1/x"), 1, store, context), 0.0);
    EXPECT_EQ(context.eval_error_message(), "Error: ln() of negative number not allowed.\rln(-1)");
    context.clear_failure();
    EXPECT_EQ(evaluate_tree(behind, 1, store, context), 0.0);
    context.clear_failure();
    EXPECT_EQ(evaluate_tree(compiled("if x>0 then 1/x else 0"), 1, store, context), 0.0);
    EXPECT_FALSE(context.eval_error_flag());
    evaluate_tree(compiled("(x>0)*(1/x)"), 1, store, context);
    EXPECT_EQ(context.eval_error_message(), "Error: Zero denominator not allowed.\r1 / x");
}

TEST(Evaluator, DrawsNoRandomNumberBehindAFailure)
{
    clsParse store;
    evaluation_context context;
    const double first = solve_text("rand(-3)", store, context).value;
    const double second = solve_text("rand(1)", store, context).value;
    EXPECT_EQ(solve_text("rand(0)", store, context).value, second);
    EXPECT_EQ(solve_text("rand(-3)", store, context).value, first);
    solve_text("1/0 + rand(1)", store, context);
    EXPECT_EQ(solve_text("rand(1)", store, context).value, second);
}

} // namespace
} // namespace kelvarin
