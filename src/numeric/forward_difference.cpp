// SPDX-License-Identifier: MIT
#include "numeric/forward_difference.h"

#include "numeric/arithmetic_check.h"
#include "numeric/work_array.h"

#include <cassert>
#include <cmath>
#include <vector>

namespace kelvarin
{

void make_relative_steps(std::span<const double> x, double relative, std::span<double> moved,
                         std::span<double> divisors)
{
    for (std::size_t j = 0; j < x.size(); ++j) {
        double step = relative * std::fabs(x[j]);
        if (step == 0.0) step = relative;
        moved[j] = finite(x[j] + step);
        divisors[j] = moved[j] - x[j];
    }
}

void evaluate_finite(nonlinear_system& system, std::span<const double> x, std::span<double> f)
{
    assert(static_cast<int>(x.size()) == system.size() && x.size() == f.size());
    system.evaluate(x, f);
    require_finite(f);
}

void relative_differences(nonlinear_system& system, std::span<const double> x, std::span<const double> f,
                          double relative, matrix& df)
{
    assert(df.rows() == system.size() && df.columns() == system.size());
    std::vector<double> moved = work_array(system.size());
    std::vector<double> divisors = work_array(system.size());
    make_relative_steps(x, relative, moved, divisors);
    system.difference_columns(x, f, moved, divisors, df);
    require_finite(df.values());
}

} // namespace kelvarin
