// SPDX-License-Identifier: MIT
#include "numeric/fit/marquardt.h"
#include "numeric/fit/scaled_marquardt.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstdlib>
#include <new>
#include <numeric>
#include <vector>

namespace
{

thread_local long allocations = 0;

} // namespace

// All of this program's memory comes by here, so that it can be counted.
void* operator new(std::size_t size)
{
    ++allocations;
    if (void* const memory = std::malloc(size)) return memory;
    throw std::bad_alloc();
}
void operator delete(void* memory) noexcept
{
    std::free(memory);
}
void operator delete(void* memory, std::size_t) noexcept
{
    std::free(memory);
}

namespace kelvarin::test
{
namespace
{

TEST(NonlinearFit, IterationsAllocateNothing)
{
    // Peaks with a pattern in the residuals: many iterations, rejected steps among them.
    std::vector<double> x(50), y;
    std::iota(x.begin(), x.end(), 1.0);
    for (const double at : x)
        y.push_back(9.0 * std::exp(-std::pow((at - 20.0) / 6.0, 2)) + std::sin(at));
    const fit_model peak = [&x](std::span<const double> b, std::span<double> values) {
        for (std::size_t i = 0; i < x.size(); ++i)
            values[i] = b[0] * std::exp(-std::pow((x[i] - b[1]) / b[2], 2));
    };
    std::vector<long> counted;
    counted.reserve(1000);
    const auto count = [&counted](int, int) { counted.push_back(allocations); };
    const std::vector<double> guess = {1.0, 27.0, 3.0};
    fit_mrqmin(peak, y, guess, {.on_iteration = count});
    const std::size_t of_mrqmin = counted.size();
    fit_scaled_marquardt(peak, y, guess, {.on_iteration = count});
    ASSERT_GT(of_mrqmin, 5U);
    ASSERT_GT(counted.size(), of_mrqmin + 5U);
    // The first calls fill what the later ones use again.
    EXPECT_EQ(counted[of_mrqmin - 1], counted[3]);
    EXPECT_EQ(counted.back(), counted[of_mrqmin + 2]);
}

} // namespace
} // namespace kelvarin::test
