// SPDX-License-Identifier: MIT
#pragma once

#include "parsed_system.h"
#include "yardsticks.h"

#include <algorithm>
#include <cstdint>
#include <memory>
#include <span>
#include <vector>

namespace kelvarin::bench
{

/// Differential equations in muParser objects, with a count of their evaluations.
class parsed_right_sides
{
public:
    explicit parsed_right_sides(const initial_values& problem)
        : system_(problem.unknowns, problem.explicit_equations, problem.derivatives), point_(problem.unknowns.size())
    {
    }

    std::int64_t evaluations = 0;

    std::size_t size() const { return point_.size() - 1; }
    void evaluate(double x, std::span<const double> y, std::span<double> dydx)
    {
        ++evaluations;
        point_.front() = x;
        std::ranges::copy(y, point_.begin() + 1);
        system_.evaluate(point_, dydx);
    }

private:
    parsed_system system_;
    std::vector<double> point_;
};

} // namespace kelvarin::bench
