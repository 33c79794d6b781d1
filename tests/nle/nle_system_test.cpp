// SPDX-License-Identifier: MIT
#include "nle/nle_run.h"
#include "nle/nle_system.h"
#include "numeric/nonlinear/NR_vbNLE.h"
#include "support/equation_rows.h"
#include "support/nle_runs.h"

#include <gtest/gtest.h>
#include <rapidcheck.h>

#include <bit>

namespace kelvarin::test
{
namespace
{

/// A sum of terms over `variables`; some of them fail for some values, some take branches.
std::string any_expression(const std::vector<std::string>& variables)
{
    const auto variable = rc::gen::elementOf(variables);
    std::string text = "0.5";
    for (int terms = *rc::gen::inRange(0, 4); terms > 0; --terms) {
        const std::string a = *variable;
        const std::string b = *variable;
        switch (*rc::gen::weightedElement<int>({{6, 0}, {4, 1}, {3, 2}, {1, 3}, {1, 4}, {2, 5}})) {
        case 0:
            text += " + " + a + "*" + b;
            break;
        case 1:
            text += " - exp(" + a + "/9)";
            break;
        case 2:
            text += " + (if " + a + " > 1 then " + b + "^2 else 3)";
            break;
        case 3:
            text += " - ln(" + a + " + 1.5)";
            break;
        case 4:
            text += " + 1/(" + a + " - 1.00001)";
            break;
        default:
            text += " + 2*" + a;
            break;
        }
    }
    return text;
}

nle_content any_system()
{
    const int size = *rc::gen::inRange(1, 9);
    const int definitions = *rc::gen::inRange(0, 4);
    nle_content content;
    std::vector<std::string> variables;
    for (int k = 0; k < size; ++k)
        variables.push_back("x" + std::to_string(k) + "x");
    for (int k = 0; k < definitions; ++k) {
        const std::string name = "d" + std::to_string(k) + "d";
        content.rows.push_back(explicit_row(name, any_expression(variables)));
        variables.push_back(name);
    }
    for (int k = 0; k < size; ++k) {
        content.rows.push_back(implicit_row(variables[static_cast<std::size_t>(k)], any_expression(variables)));
    }
    return content;
}

bool same_bits(std::span<const double> a, std::span<const double> b)
{
    return std::ranges::equal(
        a, b, [](double p, double q) { return std::bit_cast<std::uint64_t>(p) == std::bit_cast<std::uint64_t>(q); });
}

TEST(NleSystem, ColumnsDifferencedTogetherHaveTheBitsAndFailuresOfTheLoop)
{
    EXPECT_TRUE(rc::check("the fast columns are those of one evaluation each", [] {
        const nle_content content = any_system();
        recording_listener listener;
        nle_system fast(content, listener);
        nle_system plain(content, listener);
        for (nle_system* system : {&fast, &plain}) {
            system->sort();
            RC_ASSERT(!system->compile_equations());
        }
        const auto size = static_cast<std::size_t>(fast.size());
        const auto value = rc::gen::element(-2.0, -1.0, 0.0, 0.5, 1.0, 1.00001, 2.0);
        matrix fast_columns(fast.size(), fast.size(), 7.0);
        const sparsity_pattern* pattern = nullptr;
        // The matrix is kept from point to point, as a method keeps it.
        for (int round = 0; round < 3; ++round) {
            std::vector<double> x(size);
            for (double& v : x)
                v = *value;
            std::vector<double> f(size);
            fast.evaluate(x, f);
            plain.evaluate(x, f);
            // A solver may difference against the residuals of another point.
            if (*rc::gen::inRange(0, 4) == 0) f[*rc::gen::inRange(std::size_t{0}, size)] += 0.25;
            const double step = *rc::gen::inRange(0, 6) == 0 ? -1e-5 : 1e-5;
            std::vector<double> moved(x);
            for (double& v : moved)
                v += step;
            const std::vector<double> divisors(size, step);
            matrix plain_columns(fast.size(), fast.size());
            pattern = fast.difference_quotients(x, f, moved, divisors, fast_columns, pattern);
            plain.nonlinear_system::difference_columns(x, f, moved, divisors, plain_columns);
            RC_ASSERT(same_bits(fast_columns.values(), plain_columns.values()));
            RC_ASSERT(fast.context().eval_error_message() == plain.context().eval_error_message());
            RC_CLASSIFY(pattern != nullptr, "sparse");
        }
        RC_CLASSIFY(fast.context().eval_error_flag(), "failed");
    }));
}

TEST(NleSystem, AFailureOfADefinitionThatNobodyUsesIsFound)
{
    // Moved one by one the two unknowns meet the pole, moved together they do not.
    const nle_content content = system_of({implicit_row("x", "x - 1", "1"), implicit_row("y", "y - 1", "0.99999"),
                                           explicit_row("d", "1/(if x - y > 0.000015 then 0 else 1)")});
    const nle_outcome outcome = run_of(content);
    ASSERT_EQ(outcome.boxes.size(), 1U);
    EXPECT_EQ(outcome.boxes.front().text,
              "Error: Zero denominator not allowed.\r1 / if (((x - y) > 1.5E-05)) then (0) else (1)");
}

/// Broyden's tridiagonal function. [MoreGarbowHillstrom1981] problem 30
double tridiagonal(std::span<const double> x, std::size_t i)
{
    double f = (3 - 2 * x[i]) * x[i];
    if (i > 0) f -= x[i - 1];
    if (i + 1 < x.size()) f -= 2 * x[i + 1];
    return f + 1;
}

TEST(NleSystem, ATypedProblemIsSolvedWithTheBitsOfTheSameProblemInCode)
{
    constexpr int size = 60;
    nle_content content;
    content.method = nle_method::safenewt;
    for (int i = 1; i <= size; ++i) {
        const auto x = [](int k) { return "x" + std::to_string(k); };
        std::string text = "(3 - 2*" + x(i) + ")*" + x(i);
        if (i > 1) text += " - " + x(i - 1);
        if (i < size) text += " - 2*" + x(i + 1);
        content.rows.push_back(implicit_row(x(i), text + " + 1", "-1"));
    }
    const nle_outcome outcome = run_of(content);
    ASSERT_TRUE(outcome.has_report);
    EXPECT_LT(system_result(outcome).residual_sum(), 1e-6);
    EXPECT_LE(system_result(outcome).iterations, 8);

    function_system in_code(size, [](std::span<const double> x, std::span<double> f) {
        for (std::size_t i = 0; i < x.size(); ++i)
            f[i] = tridiagonal(x, i);
    });
    std::vector<double> x(size, -1.0);
    std::vector<double> fvec(size);
    const solver_summary solved = newt(in_code, x, fvec, {});
    EXPECT_EQ(system_result(outcome).iterations, solved.iterations);
    for (std::size_t i = 0; i < x.size(); ++i) {
        EXPECT_EQ(system_result(outcome).solution.implicit[i].value, x[i]);
        EXPECT_EQ(system_result(outcome).solution.implicit[i].residual, fvec[i]);
    }
}

/// Lets so many evaluations pass.
class patient_listener final : public run_listener
{
public:
    explicit patient_listener(int passes) : left_(passes) {}
    void fraction_done(double) override {}
    bool stop_asked() const override { return left_-- <= 0; }

private:
    mutable int left_;
};

TEST(NleSystem, AStopIsSeenAmongThePointsOfAScanAndTheColumnsOfAJacobian)
{
    // With rand the columns are differenced one after the other, without in lanes.
    for (const std::string random : {"", " + 0*rand(1)"}) {
        nle_content content;
        for (int i = 0; i < 12; ++i)
            content.rows.push_back(
                implicit_row("x" + std::to_string(i), "x0*x1*x2*x3*x4*x5*x6*x7*x8*x9*x10*x11" + random, "1"));
        patient_listener listener(2);
        nle_system system(content, listener);
        system.sort();
        ASSERT_FALSE(system.compile_equations());
        const std::vector<double> x(12, 1.0);
        const std::vector<double> moved(12, 1.5);
        const std::vector<double> divisors(12, 0.5);
        matrix df(12, 12);
        EXPECT_THROW(system.difference_quotients(x, x, moved, divisors, df, nullptr), run_stopped);
    }
    patient_listener listener(2);
    nle_system one(system_of({implicit_row("x", "x - 1", "1")}), listener);
    one.sort();
    ASSERT_FALSE(one.compile_equations());
    const std::vector<double> points(167, 2.0);
    std::vector<double> values(points.size());
    EXPECT_THROW(one.evaluate_points(points, values), run_stopped);
}

TEST(NleSystem, RandomNumbersAreDrawnInTheOrderOfTheWalk)
{
    const nle_content content =
        system_of({implicit_row("x", "x - rand(0)", "1"), implicit_row("y", "y - rand(1)", "1")});
    recording_listener listener;
    nle_system first(content, listener);
    nle_system second(content, listener);
    std::vector<double> f(2);
    std::vector<double> again(2);
    const std::vector<double> x = {0.0, 0.0};
    first.sort();
    second.sort();
    ASSERT_FALSE(first.compile_equations());
    ASSERT_FALSE(second.compile_equations());
    first.evaluate(x, f);
    second.evaluate(x, again);
    EXPECT_TRUE(same_bits(f, again));
    first.evaluate(x, f);
    EXPECT_EQ(f[0], again[1]) << "rand(0) repeats the last number";
}

} // namespace
} // namespace kelvarin::test
