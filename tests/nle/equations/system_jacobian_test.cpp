// SPDX-License-Identifier: MIT
#include "nle/equations/system_jacobian.h"

#include <gmock/gmock.h>

#include <memory>
#include <string>
#include <variant>
#include <vector>

namespace kelvarin
{
namespace
{

using testing::ElementsAre;

std::unique_ptr<compiled_system> rates()
{
    // Three states and the independent variable; `r` joins a and b.
    const std::vector<std::string> inputs = {"a", "b", "c", "t"};
    const std::vector<std::string> names = {"r"};
    const std::vector<std::string> definitions = {"2*a*b"};
    const std::vector<std::string> outputs = {"-r", "r - b", "4*t"};
    compilation made = compiled_system::compile({inputs, names, definitions, outputs});
    return std::move(std::get<std::unique_ptr<compiled_system>>(made));
}

TEST(SystemJacobian, DifferencesThreeOutputsByFourInputs)
{
    const auto system = rates();
    system_jacobian jacobian(*system);
    const std::vector<double> x = {1.0, 2.0, 3.0, 0.5};
    const std::vector<double> moved = {1.5, 2.5, 3.5, 0.75};
    const std::vector<double> divisors = {0.5, 0.5, 0.5, 0.25};
    std::vector<double> f(3);
    system->evaluate(x, f);
    matrix df(3, 4, 7.0);
    const sparsity_pattern* pattern = nullptr;
    for (int round = 0; round < 2; ++round) {
        pattern = jacobian.difference_quotients(x, f, moved, divisors, df, pattern);
        EXPECT_THAT(df.values(), ElementsAre(-4, -2, 0, 0, 4, 1, 0, 0, 0, 0, 0, 4));
    }
    ASSERT_NE(pattern, nullptr);
    EXPECT_THAT(pattern->columns_of(0), ElementsAre(0, 1));
    EXPECT_THAT(pattern->columns_of(1), ElementsAre(0, 1));
    EXPECT_THAT(pattern->columns_of(2), ElementsAre(3));
}

TEST(SystemJacobian, GivesAGradientOfOneOutput)
{
    const std::vector<std::string> inputs = {"x", "y", "z", "u", "v"};
    const std::vector<std::string> outputs = {"x + 2*y + 3*z*v - u"};
    compilation made =
        compiled_system::compile({.inputs = inputs, .definition_names = {}, .definitions = {}, .outputs = outputs});
    const auto& system = std::get<std::unique_ptr<compiled_system>>(made);
    system_jacobian jacobian(*system);
    const std::vector<double> x = {1, 1, 1, 1, 2};
    const std::vector<double> moved = {2, 2, 2, 2, 3};
    const std::vector<double> divisors(5, 1.0);
    const std::vector<double> f = {8.0};
    matrix df(1, 5);
    jacobian.difference_quotients(x, f, moved, divisors, df, nullptr);
    EXPECT_THAT(df.values(), ElementsAre(1, 2, 6, -1, 3));
}

} // namespace
} // namespace kelvarin
