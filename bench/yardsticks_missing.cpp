// SPDX-License-Identifier: MIT
#include "yardsticks.h"

namespace kelvarin::bench
{

yardstick parsed_evaluation(const formula&)
{
    return {};
}

yardstick parsed_compiling(const formula&)
{
    return {};
}

yardstick parsed_band_columns(int, std::span<const double>, std::span<const double>, std::span<const double>)
{
    return {};
}

yardstick lu_solve(const matrix&, std::span<const double>)
{
    return {};
}

yardstick hybrids_on_broyden(int, double)
{
    return {};
}

yardstick fit_by_gsl(const typed_fit&, double)
{
    return {};
}

yardstick linear_fit_by_gsl(const matrix&, std::span<const double>)
{
    return {};
}

yardstick parsed_derivatives(const initial_values&, double)
{
    return {};
}

integration parsed_rkf45(const initial_values&, double, double)
{
    return {};
}

integration parsed_reference(const initial_values&)
{
    return {};
}

yardstick minimize_by_gsl(const typed_target&, gsl_minimizer, double)
{
    return {};
}

} // namespace kelvarin::bench
