// SPDX-License-Identifier: MIT
#include "support/digits.h"
#include "support/opt_problems.h"

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include <algorithm>
#include <cmath>
#include <fstream>

namespace kelvarin
{
namespace
{

using json = nlohmann::json;

/// With as many rounds as may be set, and a gradient that differences of 5 can reach.
settings patient_settings()
{
    settings store;
    for (const auto& [key, value] : {std::pair{"opt_cg_MAXITER", "300"},
                                     {"opt_qn_MAXITER", "300"},
                                     {"opt_cg_eps", "1E-06"},
                                     {"opt_qn_eps", "1E-06"}})
        EXPECT_FALSE(store.set_value(key, value));
    return store;
}

opt_content content_of(const json& problem, opt_method method)
{
    opt_content content = test::target_of(problem["target"].get<std::string>(), {}, method);
    for (const json& row : problem["rows"])
        content.rows.push_back({row.get<std::string>(), "", ""});
    return content;
}

/// The digits of all variables together: of the worst one, absolute where its value is small.
double digits_of(const std::vector<double>& x, const json& minimizer)
{
    double digits = 17.0;
    for (std::size_t i = 0; i < x.size(); ++i) {
        const double expected = minimizer.at(i);
        const double error = std::fabs(x[i] - expected) / std::max(1.0, std::fabs(expected));
        digits = std::min(digits, error == 0.0 ? 17.0 : -std::log10(error));
    }
    return digits;
}

TEST(OptPublished, MinimaAreFoundByEveryMethod)
{
    std::ifstream file(std::string(KELVARIN_TEST_DATA) + "/mgh/problems.json");
    const json problems = json::parse(file)["problems"];
    ASSERT_GE(problems.size(), 13u);
    const settings store = patient_settings();
    for (const json& problem : problems) {
        for (const opt_method method : {opt_method::conjugate_grad, opt_method::quasi_newton, opt_method::dfpmin}) {
            SCOPED_TRACE(problem["name"].get<std::string>() + ", " + std::string(method_text(method)));
            const opt_outcome outcome = test::run_of(content_of(problem, method), store);
            const json refused = problem.value("refused", json::object());
            if (refused.contains(method_text(method))) {
                ASSERT_FALSE(outcome.has_report);
                EXPECT_EQ(outcome.boxes.front().text, refused[std::string(method_text(method))]);
                continue;
            }
            ASSERT_TRUE(outcome.has_report) << outcome.boxes.front().text;
            EXPECT_GE(test::digits_shown(outcome.objective, problem["minimum"]), problem["f_digits"].get<double>())
                << outcome.objective;
            if (!problem.contains("minimizer")) continue;
            EXPECT_GE(digits_of(outcome.x, problem["minimizer"]), problem["x_digits"].get<double>());
        }
    }
}

} // namespace
} // namespace kelvarin
