// SPDX-License-Identifier: MIT
#include "numeric/NR_vbNLE.h"
#include "numeric/arithmetic_check.h"
#include "numeric/forward_difference.h"
#include "numeric/work_array.h"

#include <cassert>
#include <cmath>
#include <vector>

namespace kelvarin
{

namespace
{

constexpr double fdjac_relative_step = 1e-07;
constexpr double usrfun_step = 1e-05;

} // namespace

void nonlinear_system::difference_columns(std::span<const double> x, std::span<const double> f,
                                          std::span<const double> moved, std::span<const double> divisors, matrix& df)
{
    std::vector<double> point(x.begin(), x.end());
    std::vector<double> scratch = work_array(size());
    for (std::size_t j = 0; j < x.size(); ++j) {
        point[j] = moved[j];
        evaluate(point, scratch);
        point[j] = x[j];
        for (std::size_t i = 0; i < f.size(); ++i)
            df(static_cast<int>(i), static_cast<int>(j)) = (scratch[i] - f[i]) / divisors[j];
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
    for (std::size_t j = 0; j < x.size(); ++j) {
        double step = relative * std::fabs(x[j]);
        if (step == 0.0) step = relative;
        moved[j] = finite(x[j] + step);
        divisors[j] = moved[j] - x[j];
    }
    system.difference_columns(x, f, moved, divisors, df);
    require_finite(df.values());
}

void fdjac(nonlinear_system& system, std::span<const double> x, std::span<const double> fvec, matrix& df)
{
    relative_differences(system, x, fvec, fdjac_relative_step, df);
}

void usrfun(nonlinear_system& system, std::span<const double> x, std::span<double> fvec, matrix& fjac)
{
    assert(fjac.rows() == system.size() && fjac.columns() == system.size());
    evaluate_finite(system, x, fvec);
    std::vector<double> moved(x.begin(), x.end());
    for (double& value : moved)
        value += usrfun_step;
    const std::vector<double> divisors(x.size(), usrfun_step);
    system.difference_columns(x, fvec, moved, divisors, fjac);
    require_finite(fjac.values());
}

} // namespace kelvarin
