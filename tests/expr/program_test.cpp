// SPDX-License-Identifier: MIT
#include "expr/program.h"
#include "support/random_expressions.h"

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <bit>
#include <deque>

namespace kelvarin
{
namespace
{

std::uint64_t bits(double value)
{
    return std::bit_cast<std::uint64_t>(value);
}

/// Trees over the variables of the random expressions, evaluated by the walk and by a program.
class evaluated_system
{
public:
    evaluated_system()
    {
        for (const std::string_view name : test::variable_names)
            system_.inputs.push_back(store_.slot_of(name));
    }

    void define(const std::string& name, const std::string& text)
    {
        system_.definitions.push_back({store_.slot_of(name), &built(text)});
    }
    void want(const std::string& text) { system_.outputs.push_back(&built(text)); }

    std::unique_ptr<program> compiled() const { return program::compile(system_); }

    /// The outputs by the walk; the context tells whether something failed.
    std::vector<double> walk(const test::variable_values& values, evaluation_context& context)
    {
        store_.remove_all_vars();
        for (std::size_t i = 0; i < values.size(); ++i)
            store_.set(system_.inputs[i], values[i]);
        for (const auto& definition : system_.definitions)
            store_.set(definition.slot, evaluate_tree(*definition.tree, 1, store_, context));
        std::vector<double> outputs;
        for (const expression_tree* tree : system_.outputs)
            outputs.push_back(evaluate_tree(*tree, 1, store_, context));
        return outputs;
    }

private:
    const expression_tree& built(const std::string& text)
    {
        texts_.push_back(text);
        built_tree made = build_tree(scan_tokens(texts_.back()), store_);
        EXPECT_TRUE(made.ok()) << text << ": " << made.message;
        trees_.push_back(std::move(made.tree));
        return trees_.back();
    }

    clsParse store_;
    std::deque<std::string> texts_;
    std::deque<expression_tree> trees_;
    tree_system system_;
};

void expect_the_walk(evaluated_system& system, program& fast, const test::variable_values& values)
{
    evaluation_context context;
    const std::vector<double> expected = system.walk(values, context);
    std::vector<double> actual(expected.size());
    const bool ok = fast.run(values, actual);
    RC_ASSERT(ok == !context.eval_error_flag());
    for (std::size_t i = 0; ok && i < expected.size(); ++i)
        RC_ASSERT(bits(actual[i]) == bits(expected[i]));
}

/// A failure at one of four points, or branches that differ, may make the four give up; bits may not differ.
void expect_the_walk_at_four_points(evaluated_system& system, program& fast, std::size_t outputs)
{
    std::array<test::variable_values, program::lanes> points;
    std::vector<double> inputs(test::variable_names.size() * program::lanes);
    for (std::size_t p = 0; p < program::lanes; ++p) {
        points[p] = test::random_values(*rc::gen::inRange(0, 4) == 0);
        for (std::size_t i = 0; i < points[p].size(); ++i)
            inputs[i * program::lanes + p] = points[p][i];
    }
    std::vector<double> actual(outputs * program::lanes);
    const bool ok = fast.run_lanes(inputs, actual);
    for (std::size_t p = 0; p < program::lanes; ++p) {
        evaluation_context context;
        const std::vector<double> expected = system.walk(points[p], context);
        RC_ASSERT(!ok || !context.eval_error_flag());
        for (std::size_t i = 0; ok && i < outputs; ++i)
            RC_ASSERT(bits(actual[i * program::lanes + p]) == bits(expected[i]));
    }
}

RC_GTEST_PROP(Program, GivesTheBitsAndFailuresOfTheWalk, ())
{
    evaluated_system system;
    test::expression_maker maker(test::random_values(true), true);
    const int definitions = *rc::gen::inRange(0, 4);
    for (int i = 0; i < definitions; ++i)
        system.define("d" + std::to_string(i), maker.make(*rc::gen::inRange(0, 5)).text);
    const int outputs = *rc::gen::inRange(1, 4);
    for (int i = 0; i < outputs; ++i) {
        const std::string text = maker.make(*rc::gen::inRange(0, 6)).text;
        RC_LOG(text + "\n");
        system.want(definitions > 0 ? "d" + std::to_string(i % definitions) + " * (" + text + ") + a" : text);
    }
    const auto fast = system.compiled();
    RC_ASSERT(fast != nullptr);
    for (int repeat = 0; repeat < 3; ++repeat)
        expect_the_walk(system, *fast, test::random_values(true));
    expect_the_walk_at_four_points(system, *fast, static_cast<std::size_t>(outputs));
}

/// Places at which a value that is not finite could get lost on the way to the result.
/// A term over two values, so that in a chain of them each value serves the next ones.
std::string any_link(const std::string& a, const std::string& b)
{
    switch (*rc::gen::inRange(0, 8)) {
    case 0:
        return a + "*0.5+" + b;
    case 1:
        return a + "/(1.5+" + b + "*" + b + ")";
    case 2:
        return "(" + a + "+" + b + ")*(" + a + "-" + b + ")";
    case 3:
        return a + "*" + a + "-" + b;
    case 4:
        return b + "-" + a + "*0.25";
    case 5:
        return "(" + b + "+" + b + ")/(" + a + "+" + a + ")";
    case 6:
        return a + "+0.75";
    default:
        return "(if " + a + ">" + b + " then " + a + "*0.5 else " + b + "*" + b + ")";
    }
}

RC_GTEST_PROP(Program, GivesTheBitsOfTheWalkInChains, ())
{
    evaluated_system system;
    std::vector<std::string> names(test::variable_names.begin(), test::variable_names.end());
    for (int link = 0; link < 20; ++link) {
        // Mostly of the values just made.
        const auto back = [&] { return names[names.size() - *rc::gen::inRange<std::size_t>(1, 5)]; };
        const std::string name = "link" + std::string(1, static_cast<char>('a' + link));
        system.define(name, any_link(back(), back()));
        names.push_back(name);
    }
    system.want(names.back());
    system.want(names[names.size() - 2] + "+" + names.back());
    const auto fast = system.compiled();
    RC_ASSERT(fast != nullptr);
    for (int point = 0; point < 4; ++point)
        expect_the_walk(system, *fast, test::random_values(false));
    expect_the_walk_at_four_points(system, *fast, 2);
}

TEST(Program, LosesNoFailure)
{
    const std::vector<std::string> texts = {
        "1/(a*1e300*1e300)",    "exp(-a*1e300*1e300)",   "if a*1e300*1e300 then 1 else 2",
        "(a*1e300*1e300)^(-1)", "1^(a*1e300*1e300)",     "0 and a*1e300*1e300",
        "a*1e300*1e300 > 1",    "arctan(a*1e300*1e300)", "sign(a*1e300*1e300)",
        "sech(1000*a)",         "arcsin(a/2)",           "1/(1/(a-2))",
        "exp(-1/(a-2))",        "srq(ln(a-2))",          "psi(a*1e200)",
        "erf(a*1e200)",         "2 + 0*ln(a-3)",         "b + if a then ln(a-2) else 0",
        "exp2(-a*1e300*1e300)"};
    for (const std::string& text : texts) {
        SCOPED_TRACE(text);
        evaluated_system system;
        system.want("1");
        system.want(text);
        evaluation_context context;
        const test::variable_values values = {2.0, 1.0, 1.0, 1.0};
        system.walk(values, context);
        ASSERT_TRUE(context.eval_error_flag());
        std::array<double, 2> outputs{};
        EXPECT_FALSE(system.compiled()->run(values, outputs));
    }
}

TEST(Program, FailsWithAnUnusedDefinitionToo)
{
    evaluated_system system;
    system.define("u", "ln(a)");
    system.want("b");
    std::array<double, 1> output{};
    EXPECT_FALSE(system.compiled()->run(test::variable_values{-1.0, 1.0, 1.0, 1.0}, output));
    EXPECT_TRUE(system.compiled()->run(test::variable_values{1.0, 5.0, 1.0, 1.0}, output));
    EXPECT_EQ(output[0], 5.0);
}

TEST(Program, LeavesToTheWalkWhatOnlyTheWalkCanMean)
{
    for (const char* text : {"a + rand(1)", "a + unknown", "if 1 then a else later"}) {
        evaluated_system system;
        system.want(text);
        EXPECT_EQ(system.compiled(), nullptr) << text;
    }
    evaluated_system itself;
    itself.define("d", "d + 1");
    itself.want("d");
    EXPECT_EQ(itself.compiled(), nullptr);
}

TEST(Program, TakesTheBranchOnlyThatIsChosen)
{
    evaluated_system system;
    system.want("(if a > 0 then ln(a) else b*b) + (if a > 0 then b*b else 1) + b*b");
    const auto fast = system.compiled();
    std::array<double, 1> output{};
    EXPECT_TRUE(fast->run(test::variable_values{-1.0, 3.0, 0.0, 0.0}, output));
    EXPECT_EQ(output[0], 19.0);
    EXPECT_TRUE(fast->run(test::variable_values{1.0, 3.0, 0.0, 0.0}, output));
    EXPECT_EQ(output[0], 18.0);
}

TEST(Program, KnowsWhichOutputDependsOnWhichInput)
{
    evaluated_system system;
    system.define("d", "b*2");
    system.want("a + d");
    system.want("x1*0");
    system.want("if a then 1 else Long_name");
    const auto fast = system.compiled();
    const std::vector<std::vector<bool>> expected = {
        {true, true, false, false}, {false, false, true, false}, {true, false, false, true}};
    for (std::size_t i = 0; i < expected.size(); ++i)
        for (std::size_t j = 0; j < expected[i].size(); ++j)
            EXPECT_EQ((fast->inputs_of(i)[0] >> j & 1) != 0, expected[i][j]) << i << "," << j;
}

} // namespace
} // namespace kelvarin
