// SPDX-License-Identifier: MIT
#include "deq/deq_system.h"
#include "support/deq_problems.h"
#include "support/equation_rows.h"

#include <gtest/gtest.h>

#include <bit>
#include <cmath>
#include <cstdint>

namespace kelvarin
{
namespace
{

using test::differential_row;
using test::explicit_row;
using test::integrated;

/// The bits of the derivatives by x, then by each variable.
std::vector<std::uint64_t> bits_of(const ode_jacobian& jacobian)
{
    std::vector<std::uint64_t> bits;
    for (const double value : jacobian.dfdx)
        bits.push_back(std::bit_cast<std::uint64_t>(value));
    for (const double value : jacobian.dfdy.values())
        bits.push_back(std::bit_cast<std::uint64_t>(value));
    return bits;
}

// A chain whose variables use their neighbours, an explicit chain in reverse order, and the independent variable.
TEST(DeqSystem, JacobiansHaveTheBitsOfOneEvaluationForEachColumn)
{
    constexpr int n = 17;
    std::vector<equation_row> rows;
    std::vector<double> y;
    for (int i = 0; i < n; ++i) {
        const std::string own = "y" + std::to_string(i);
        const std::string next = "y" + std::to_string((i + 1) % n);
        rows.push_back(differential_row(own, "a*" + own + "^2-sin(" + next + ")/b" + (i % 5 == 0 ? "*t" : "")));
        y.push_back(i % 3 == 0 ? -1.0 - i : std::exp(i - 8.0));
    }
    rows.push_back(explicit_row("a", "b+y3"));
    rows.push_back(explicit_row("b", "exp(t/7)"));
    recording_listener listener;
    deq_system system(integrated(rows), listener);
    system.sort();
    ASSERT_FALSE(system.compile_deq_expressions());
    ode_jacobian fast(n), plain(n);
    for (const double t : {0.0, 0.7, -3.0}) {
        evaluate_jacobian(system, t, y, fast);
        plain = fast;
        plain.dfdx.assign(n, -1.0);
        system.ode_system::differences(t, y, plain);
        EXPECT_EQ(bits_of(fast), bits_of(plain));
    }
    // The second time the columns that are zero are known.
    y[0] = 5.0;
    evaluate_jacobian(system, 1.0, y, fast);
    plain = fast;
    system.ode_system::differences(1.0, y, plain);
    EXPECT_EQ(bits_of(fast), bits_of(plain));
}

} // namespace
} // namespace kelvarin
