// SPDX-License-Identifier: MIT
#include "numeric/arithmetic_check.h"
#include "numeric/forward_difference.h"
#include "numeric/linear/gauss_jordan.h"
#include "numeric/nonlinear/NR_vbNLE.h"
#include "numeric/nonlinear/jacobian.h"
#include "numeric/nonlinear/stopping_tests.h"
#include "numeric/vector_sums.h"
#include "numeric/work_array.h"

#include <algorithm>
#include <functional>
#include <vector>

namespace kelvarin
{

namespace
{

/// p, the Newton step: fjac p = -fvec, [Press1992] eq. 9.6.6 and 9.7.3. Departs from the publication in the
/// elimination, which replaces the LU decomposition and does not detect a singular Jacobian: p is then what the
/// elimination has left, for one unknown with a flat slope -fvec itself.
void newton_step(const jacobian_workspace& fjac, std::span<const double> fvec, std::span<double> p,
                 elimination_workspace& memory)
{
    std::ranges::transform(fvec, p.begin(), std::negate<>());
    gauss_jordan_solve(fjac.elements, p, memory, fjac.pattern);
}

/// x += p, [Press1992] eq. 9.6.7. Throws runtime_failure 6 and leaves x unchanged if a sum is not finite.
void move(std::span<double> x, std::span<const double> p, std::span<double> moved)
{
    std::ranges::transform(x, p, moved.begin(), std::plus<>());
    require_finite(moved);
    std::ranges::copy(moved, x.begin());
}

/// Adds the transposed Jacobian times the residuals, where most of its elements are zero.
void add_sparse_gradient(const matrix& fjac, const sparsity_pattern& pattern, std::span<const double> fvec,
                         std::span<double> g)
{
    for (int j = 0; j < fjac.rows(); ++j) {
        const std::span<const double> row = fjac.row(j);
        const double residual = fvec[static_cast<std::size_t>(j)];
        for (const std::uint32_t i : pattern.columns_of(j))
            g[i] += row[i] * residual;
    }
}

void add_gradient(const matrix& fjac, std::span<const double> fvec, std::span<double> g)
{
    constexpr std::size_t lanes = 4;
    for (int j = 0; j < fjac.rows(); ++j) {
        const std::span<const double> row = fjac.row(j);
        const double residual = fvec[static_cast<std::size_t>(j)];
        std::size_t i = 0;
        for (; i + lanes <= g.size(); i += lanes)
            for (std::size_t lane = 0; lane < lanes; ++lane)
                g[i + lane] += row[i + lane] * residual;
        for (; i < g.size(); ++i)
            g[i] += row[i] * residual;
    }
}

/// Gradient of half the sum of squares: the transposed Jacobian times the residuals, as in [Press1992] eq. 9.7.5.
void gradient(const jacobian_workspace& fjac, std::span<const double> fvec, std::span<double> g)
{
    std::ranges::fill(g, 0.0);
    if (fjac.pattern != nullptr)
        add_sparse_gradient(fjac.elements, *fjac.pattern, fvec, g);
    else
        add_gradient(fjac.elements, fvec, g);
    require_finite(g);
}

} // namespace

solver_summary mnewt(nonlinear_system& system, std::span<double> x, std::span<double> fvec,
                     const mnewt_options& options)
{
    const int n = system.size();
    jacobian_workspace fjac(n);
    std::vector<double> p = work_array(n);
    std::vector<double> moved = work_array(n);
    elimination_workspace memory;
    for (int k = 1; k <= options.ntrial; ++k) {
        if (options.on_iteration) options.on_iteration(k, options.ntrial);

        usrfun(system, x, fvec, fjac);
        if (sum_of_magnitudes(fvec) <= options.tolf) return {solver_ending::residual_small, k};

        newton_step(fjac, fvec, p, memory);
        const double errx = sum_of_magnitudes(p);
        move(x, p, moved);
        if (errx <= options.tolx) return {solver_ending::step_small, k};
    }
    return {solver_ending::trials_used, options.ntrial};
}

solver_summary newt(nonlinear_system& system, std::span<double> x, std::span<double> fvec, const newt_options& options)
{
    const int n = system.size();
    jacobian_workspace fjac(n);
    std::vector<double> g = work_array(n);
    std::vector<double> p = work_array(n);
    elimination_workspace memory;
    std::vector<double> xold = work_array(n);
    std::vector<double> trial = work_array(n);

    double f = fmin_nle(system, x, fvec);
    if (start_is_root(fvec, options.TOLF)) return {solver_ending::residual_small};
    const double stpmax = longest_step(x);
    for (int its = 1; its <= options.MAXITS; ++its) {
        if (options.on_iteration) options.on_iteration(its, options.MAXITS);

        fdjac(system, x, fvec, fjac);
        gradient(fjac, fvec, g);
        newton_step(fjac, fvec, p, memory);
        std::ranges::copy(x, xold.begin());
        const line_search_result search = lnsrch(system, xold, f, g, p, x, fvec, stpmax, trial);
        f = search.f;

        if (residuals_below(fvec, options.TOLF)) return {solver_ending::residual_small, its, false};
        if (search.check) return {solver_ending::no_descent, its, gradient_vanishes(g, x, f, options.TOLMIN)};
        if (step_below(x, xold, options.TOLX)) return {solver_ending::step_small, its, false};
    }
    nrerror("NEWT: MAXITS exceeded in newt");
}

} // namespace kelvarin
