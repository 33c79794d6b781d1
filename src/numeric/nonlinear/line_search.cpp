// SPDX-License-Identifier: MIT
#include "numeric/backtracking_search.h"
#include "numeric/forward_difference.h"
#include "numeric/nonlinear/NR_vbNLE.h"
#include "numeric/vector_sums.h"
#include "numeric/work_array.h"

#include <vector>

namespace kelvarin
{

double FMAX(double a, double b)
{
    return a > b ? a : b;
}

double fmin_nle(nonlinear_system& system, std::span<const double> x, std::span<double> fvec)
{
    evaluate_finite(system, x, fvec);
    return 0.5 * dot(fvec, fvec); // [Press1992] eq. 9.7.4
}

line_search_result lnsrch(nonlinear_system& system, std::span<const double> xold, double fold,
                          std::span<const double> g, std::span<double> p, std::span<double> x, std::span<double> fvec,
                          double stpmax)
{
    std::vector<double> point = work_array(system.size());
    return lnsrch(system, xold, fold, g, p, x, fvec, stpmax, point);
}

line_search_result lnsrch(nonlinear_system& system, std::span<const double> xold, double fold,
                          std::span<const double> g, std::span<double> p, std::span<double> x, std::span<double> fvec,
                          double stpmax, std::span<double> point)
{
    return backtracking_search(
        xold, fold, p, x, stpmax, point, [&](std::span<const double> at) { return fmin_nle(system, at, fvec); },
        [g](std::span<const double> along) { return dot(g, along); });
}

} // namespace kelvarin
