// SPDX-License-Identifier: MIT
#include "nle/nle_analysis.h"
#include "nle/nle_file.h"
#include "nle/nle_samples.h"
#include "support/digits.h"
#include "support/nle_runs.h"

#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <fstream>
#include <map>
#include <string>

namespace kelvarin
{
namespace
{

/// By the example's number (from 1), the values that expected_values.py computed with 40 digits.
std::map<std::size_t, std::map<std::string, double>> expected_values()
{
    std::map<std::size_t, std::map<std::string, double>> expected;
    std::ifstream file(std::string(KELVARIN_TEST_DATA) + "/nle_samples/expected_values.txt");
    std::size_t number = 0;
    std::string name;
    double value = 0.0;
    while (file >> number >> name >> value)
        expected[number][name] = value;
    return expected;
}

std::map<std::string, double> values_of(const nle_outcome& outcome)
{
    std::map<std::string, double> values;
    const auto add = [&values](const auto& rows) {
        for (const auto& row : rows)
            values[row.name] = row.value;
    };
    if (const auto* explicit_rows = std::get_if<nle_explicit_result>(&outcome.result)) {
        add(explicit_rows->values);
        return values;
    }
    const auto* single = std::get_if<nle_single_result>(&outcome.result);
    const nle_solution& solution = single ? single->roots.at(0) : test::system_result(outcome).solution;
    add(solution.implicit);
    add(solution.explicit_values);
    return values;
}

TEST(NleSamples, EachRunsAndGivesTheValuesThatWereComputedApart)
{
    const auto expected = expected_values();
    ASSERT_EQ(expected.size(), nle_sample_count);
    std::size_t number = 0;
    for (const nle_content& sample : nle_samples()) {
        SCOPED_TRACE(sample.title);
        EXPECT_TRUE(analyse_nle(sample).green);
        EXPECT_TRUE(listing_warnings(sample).empty());
        const nle_outcome outcome = test::run_of(sample);
        ASSERT_TRUE(outcome.has_report);
        EXPECT_TRUE(outcome.converged());
        if (const auto* single = std::get_if<nle_single_result>(&outcome.result)) {
            EXPECT_EQ(single->roots.size(), 1u);
        }
        const std::map<std::string, double> values = values_of(outcome);
        for (const auto& [name, value] : expected.at(++number)) {
            SCOPED_TRACE(name);
            ASSERT_TRUE(values.contains(name));
            EXPECT_GE(test::digits_shown(values.at(name), value), 6.0) << values.at(name) << " for " << value;
        }
    }
}

TEST(NleSamples, TellWhatEachRowIsAndComeBackFromTheirFiles)
{
    const char* const titles[] = {"Example 1 - Solution of a quadratic equation",
                                  "Example 2 - Gas volume from SRK equation of state",
                                  "Example 3 - Calculation of pipe diameter", "Example 4 - Three phase bubble point"};
    std::size_t number = 0;
    for (const nle_content& sample : nle_samples()) {
        SCOPED_TRACE(sample.title);
        EXPECT_EQ(sample.title, titles[number++]);
        for (const equation_row& row : sample.rows)
            EXPECT_FALSE(row.comment.empty()) << row.equation;
        EXPECT_EQ(read_nle(write_nle(sample)), sample);
    }
}

/// The roots of x^2 + 2x + 5 = 0 are -1 + 2i and -1 - 2i.
TEST(NleSamples, TheQuadraticEquationKnowsComplexRoots)
{
    nle_content sample = nle_samples().front();
    for (std::size_t i = 0; i < 3; ++i)
        sample.rows[i].equation = std::array{"a = 1", "b = 2", "c = 5"}[i];
    const std::map<std::string, double> values = values_of(test::run_of(sample));
    EXPECT_EQ(values.at("disc"), -16.0);
    EXPECT_EQ(values.at("x1"), -1.0);
    EXPECT_EQ(values.at("x2"), -1.0);
}

/// Oil of high viscosity flows laminar; then the law of Hagen and Poiseuille tells the diameter.
TEST(NleSamples, ThePipeChangesItsFormulaWithTheReynoldsNumber)
{
    nle_content sample = nle_samples()[2];
    for (equation_row& row : sample.rows)
        if (row.equation.starts_with("mu =")) row.equation = "mu = 0.5";
    sample.rows[0].guess = "0.15";
    sample.rows[1].guess = "0.1";
    const std::map<std::string, double> values = values_of(test::run_of(sample));
    const double pi = 3.14159265358979;
    const double diameter = std::pow(128.0 * 0.5 * 350.0 * 0.012 / (pi * 150000.0), 0.25);
    EXPECT_LT(values.at("Re"), 2100.0);
    EXPECT_GE(test::digits_shown(values.at("D"), diameter), 6.0) << values.at("D");
}

} // namespace
} // namespace kelvarin
