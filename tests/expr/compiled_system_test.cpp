// SPDX-License-Identifier: MIT
#include "expr/compiled_system.h"
#include "expr/point_sweep.h"
#include "support/table.h"

#include <gmock/gmock.h>

#include <cmath>
#include <string>
#include <vector>

namespace kelvarin
{
namespace
{

using testing::ElementsAre;
using testing::ElementsAreArray;

/// A system from texts; definitions as "name = text".
compilation compiled(const std::vector<std::string>& inputs, const std::vector<std::string>& definitions,
                     const std::vector<std::string>& outputs, bool outputs_first = false)
{
    std::vector<std::string> names;
    std::vector<std::string> texts;
    for (const std::string& definition : definitions) {
        const std::size_t equals = definition.find('=');
        names.push_back(definition.substr(0, equals));
        texts.push_back(definition.substr(equals + 1));
    }
    return compiled_system::compile({inputs, names, texts, outputs, outputs_first});
}

std::unique_ptr<compiled_system> system_of(const std::vector<std::string>& inputs,
                                           const std::vector<std::string>& definitions,
                                           const std::vector<std::string>& outputs)
{
    compilation made = compiled(inputs, definitions, outputs);
    EXPECT_TRUE(std::holds_alternative<std::unique_ptr<compiled_system>>(made));
    return std::move(std::get<std::unique_ptr<compiled_system>>(made));
}

TEST(CompiledSystem, FindsTheFirstRefusalOfTheListThatIsCompiledFirst)
{
    const test::table<std::string, std::string, bool, bool, std::string, bool> refusals = {
        {"a + zz", "3*(", false, false, "Syntax Error: variable name not defined 'zz'", false},
        {"a + zz", "b + yy", true, true, "Syntax Error: variable name not defined 'yy'", false},
        {"", "b", false, false, "Syntax Error: No expression entered.", false},
        {"a >", "b", true, false, "Expression Parsing Error: Subscript out of range", false},
        {"(1) (2)", "b", false, false, "Internal error found ! Please contact KELVARIN support personal.", true},
    };
    for (const auto& [definition, output, outputs_first, is_output, message, fatal] : refusals) {
        SCOPED_TRACE(definition);
        const compilation made = compiled({"a"}, {"b=2*a", "c=" + definition}, {"c", output}, outputs_first);
        const auto* refused = std::get_if<refused_expression>(&made);
        ASSERT_NE(refused, nullptr);
        EXPECT_EQ(refused->is_output, is_output);
        EXPECT_EQ(refused->number, 2);
        EXPECT_EQ(refused->message, message);
        EXPECT_EQ(refused->fatal, fatal);
    }
}

TEST(CompiledSystem, TellsWhichTextFailedAndWhatInIt)
{
    const test::table<const char*, const char*, bool, const char*> failures = {
        {"1", "2 + 44.1 / x", true, "44.1 / x"},
        {"5 * ln ( x - 1 )", "1/x", false, "ln ( x - 1 )"},
        {"2*((x - 4)^0.5)", "1/x", false, "(x - 4)^0.5"},
        {"1", "if x > 1 then 1 else -(x)^(-1)", true, "(x)^(-1)"},
        {"1e300", "3 - a*a", true, "a*a"},
    };
    for (const auto& [definition, output, in_output, failing] : failures) {
        SCOPED_TRACE(output);
        const auto system = system_of({"x"}, {std::string("a=") + definition}, {"x + 1", output});
        EXPECT_FALSE(system->failed_part());
        std::vector<double> f(2);
        system->evaluate(std::vector{0.0}, f);
        // What is evaluated while a failure stands is not at fault.
        system->evaluate(std::vector{1.0}, f);
        const std::optional<failed_expression> failed = system->failed_part();
        ASSERT_TRUE(failed && failed->place);
        EXPECT_EQ(failed->is_output, in_output);
        EXPECT_EQ(failed->number, in_output ? 2 : 1);
        const std::string text = in_output ? output : definition;
        EXPECT_EQ(text.substr(failed->place->offset, failed->place->length), failing);
        system->context().clear_failure();
        EXPECT_FALSE(system->failed_part());
    }
}

TEST(CompiledSystem, HasTheDefinitionsOfTheLastEvaluationWhoeverMadeIt)
{
    // rand keeps the second system from having a program; a failure sends the first one to the walk.
    for (const std::string random : {"", " + 0*rand(1)"}) {
        SCOPED_TRACE(random);
        const auto system = system_of({"x", "y"}, {"d=x + y" + random, "e=2*d", "l=ln(x)"}, {"e*l"});
        EXPECT_EQ(system->fast_program() == nullptr, !random.empty());
        std::vector<double> f(1);
        system->evaluate(std::vector{1.0, 2.0}, f);
        EXPECT_THAT(f, ElementsAre(0.0));
        EXPECT_THAT(system->definition_values(), ElementsAre(3.0, 6.0, 0.0));
        system->evaluate(std::vector{-1.0, 2.0}, f);
        EXPECT_TRUE(system->context().eval_error_flag());
        EXPECT_THAT(system->definition_values(), ElementsAre(1.0, 2.0, 0.0));
        system->evaluate(std::vector{1.0, 5.0}, f);
        EXPECT_THAT(system->definition_values(), ElementsAre(0.0, 0.0, 0.0)) << "a failure stays";
        system->context().clear_failure();
        system->evaluate(std::vector{1.0, 5.0}, f);
        EXPECT_THAT(system->definition_values(), ElementsAre(6.0, 12.0, 0.0));
    }
}

TEST(CompiledSystem, ShowsDefinitionsThatCanBeEvaluatedBesideThoseThatCanNot)
{
    const auto system = system_of({"x", "x"}, {"l=ln(x)", "d=x + 1"}, {"d"});
    EXPECT_THAT(system->displayed_definitions(std::vector{-1.0, 5.0}), ElementsAre(0.0, 0.0)) << "the first x counts";
    EXPECT_FALSE(system->context().eval_error_flag());
    std::vector<double> f(1);
    system->evaluate(std::vector{-1.0, 5.0}, f);
    EXPECT_THAT(f, ElementsAre(6.0)) << "the last x counts";
}

TEST(PointSweep, GivesTheBitsOfOneEvaluationAfterTheOther)
{
    for (const std::string text :
         {"k*x^3 - y/3 + exp(-x)", "if x > 2.5 then y*k else sin(x)", "k*x + 0*rand(1)", "k + 0.1"}) {
        SCOPED_TRACE(text);
        const auto system = system_of({"k", "x", "y"}, {"unused=x + k"}, {text});
        for (std::size_t rows = 0; rows < 11; ++rows) {
            std::vector<double> x(rows);
            std::vector<double> y(rows);
            std::vector<double> expected(rows);
            for (std::size_t row = 0; row < rows; ++row) {
                x[row] = 0.7 * static_cast<double>(row);
                y[row] = std::sqrt(x[row] + 0.3);
                system->evaluate(std::vector{1.1, x[row], y[row]}, std::span(expected).subspan(row, 1));
            }
            point_sweep sweep(*system);
            sweep.set_input(0, 1.1);
            sweep.set_input(1, x);
            sweep.set_input(2, y);
            std::vector<double> values(rows, 99.0);
            EXPECT_EQ(sweep.run(values), std::nullopt);
            EXPECT_THAT(values, ElementsAreArray(expected));
        }
    }
}

TEST(PointSweep, StopsAtTheFirstFailureAndGoesOnBehindIt)
{
    const auto system = system_of({"x"}, {}, {"5 + ln(x)"});
    const std::vector<double> x = {1.0, 1.0, 1.0, 1.0, 1.0, -1.0, 1.0, -2.0, 1.0};
    point_sweep sweep(*system);
    sweep.set_input(0, x);
    std::vector<double> values(x.size(), 99.0);
    EXPECT_EQ(sweep.run(values), 5U);
    EXPECT_THAT(values, ElementsAre(5, 5, 5, 5, 5, 5, 0, 0, 0)) << "the failing term alone is 0";
    const std::string message = system->context().eval_error_message();
    EXPECT_FALSE(message.empty());

    system->context().clear_failure();
    EXPECT_EQ(sweep.run(values, 6), 7U);
    EXPECT_THAT(values, ElementsAre(5, 5, 5, 5, 5, 5, 5, 5, 0));
    system->context().clear_failure();
    EXPECT_EQ(sweep.run(values, 8), std::nullopt);
    EXPECT_EQ(values.back(), 5.0);
    EXPECT_EQ(sweep.run(values, 7), 7U) << "a failed point in the last lanes";
    EXPECT_EQ(sweep.run(values), 0U) << "while a failure stands every row fails";
}

} // namespace
} // namespace kelvarin
