// SPDX-License-Identifier: MIT
#include "numeric/arithmetic_check.h"
#include "numeric/linear/qr.h"
#include "numeric/nonlinear/NR_vbNLE.h"
#include "numeric/nonlinear/stopping_tests.h"
#include "numeric/vector_sums.h"
#include "numeric/work_array.h"

#include <algorithm>
#include <cmath>
#include <utility>
#include <vector>

namespace kelvarin
{

namespace
{

std::size_t index(int i)
{
    return static_cast<std::size_t>(i);
}

/// The approximate Jacobian B = Q R, and the vectors that bring it from one point to the next. A restart
/// costs O(n^3), anything else O(n^2).
class broyden_jacobian
{
public:
    explicit broyden_jacobian(int n)
        : n_(n), r_(work_matrix(n)), qt_(work_matrix(n)), d_(work_array(n)), c_(work_array(n)), s_(work_array(n)),
          t_(work_array(n)), w_(work_array(n))
    {
    }

    /// B from differences at x, where F is fvec.
    void restart(nonlinear_system& system, std::span<const double> x, std::span<const double> fvec)
    {
        fdjac(system, x, fvec, r_);
        if (qrdcmp(r_, c_, d_)) nrerror("BROYDN: singular Jacobian in broydn");
        form_q_transposed();
        form_r();
    }

    /// Broyden's formula, [Press1992] eq. 9.7.17, [Broyden1965]: the smallest change of B that satisfies the secant
    /// condition B s = fvec - fvcold, eq. 9.7.16, for the last step s.
    void update(std::span<const double> x, std::span<const double> xold, std::span<const double> fvec,
                std::span<const double> fvcold, double EPS)
    {
        for (int i = 0; i < n_; ++i)
            s_[index(i)] = x[index(i)] - xold[index(i)];
        if (!unexplained_change(fvec, fvcold, EPS)) return;
        q_transposed_times(w_, t_);
        const double length_squared = dot(s_, s_);
        for (double& value : s_)
            value = quotient(value, length_squared);
        qrupdt(r_, qt_, t_, s_);
        for (int i = 0; i < n_; ++i) {
            d_[index(i)] = r_(i, i);
            if (d_[index(i)] == 0.0) nrerror("BROYDN: r singular in broydn");
        }
    }

    /// The step p, B p = -fvec, [Press1992] eq. 9.7.15, and the gradient g = B^T fvec.
    void step(std::span<const double> fvec, std::span<double> p, std::span<double> g)
    {
        q_transposed_times(fvec, p);
        std::ranges::fill(g, 0.0);
        for (int j = 0; j < n_; ++j)
            for (int i = j; i < n_; ++i)
                g[index(i)] += r_(j, i) * p[index(j)];
        require_finite(g);
        for (double& value : p)
            value = -value;
        rsolv(r_, d_, p);
    }

private:
    /// Multiplies the reflections together, from the identity on, each applied to all rows at once.
    void form_q_transposed()
    {
        std::ranges::fill(qt_.values(), 0.0);
        for (int i = 0; i < n_; ++i)
            qt_(i, i) = 1.0;
        for (int k = 0; k < n_ - 1; ++k)
            if (c_[index(k)] != 0.0) reflect_q(k);
    }

    void reflect_q(int k)
    {
        std::ranges::fill(t_, 0.0);
        for (int i = k; i < n_; ++i)
            for (int j = 0; j < n_; ++j)
                t_[index(j)] += r_(i, k) * qt_(i, j);
        for (double& product : t_)
            product /= c_[index(k)];
        for (int i = k; i < n_; ++i)
            for (int j = 0; j < n_; ++j)
                qt_(i, j) -= t_[index(j)] * r_(i, k);
    }

    /// Clears the reflections' vectors away from below the diagonal and puts the diagonal in.
    void form_r()
    {
        for (int i = 0; i < n_; ++i) {
            std::fill_n(r_.row(i).begin(), i, 0.0);
            r_(i, i) = d_[index(i)];
        }
    }

    /// w = fvec - fvcold - B s, an element counting as 0 where it is noise beside the residuals. False when
    /// nothing is left of it.
    bool unexplained_change(std::span<const double> fvec, std::span<const double> fvcold, double EPS)
    {
        for (int i = 0; i < n_; ++i)
            t_[index(i)] = dot(std::span<const double>(r_.row(i)).subspan(index(i)), std::span(s_).subspan(index(i)));
        std::ranges::fill(w_, 0.0);
        for (int j = 0; j < n_; ++j)
            for (int i = 0; i < n_; ++i)
                w_[index(i)] += qt_(j, i) * t_[index(j)];
        bool any = false;
        for (std::size_t i = 0; i < w_.size(); ++i) {
            w_[i] = finite(fvec[i] - fvcold[i] - w_[i]);
            if (std::fabs(w_[i]) < EPS * (std::fabs(fvec[i]) + std::fabs(fvcold[i]))) w_[i] = 0.0;
            any = any || w_[i] != 0.0;
        }
        return any;
    }

    void q_transposed_times(std::span<const double> v, std::span<double> product) const
    {
        for (int i = 0; i < n_; ++i)
            product[index(i)] = dot(qt_.row(i), v);
    }

    int n_;
    matrix r_;
    matrix qt_;
    /// The diagonal of R, and the reflections' c of a fresh factorisation.
    std::vector<double> d_;
    std::vector<double> c_;
    std::vector<double> s_;
    std::vector<double> t_;
    std::vector<double> w_;
};

} // namespace

solver_summary broydn(nonlinear_system& system, std::span<double> x, std::span<double> fvec,
                      const broydn_options& options)
{
    const int n = system.size();
    double f = fmin_nle(system, x, fvec);
    if (start_is_root(fvec, options.TOLF)) return {solver_ending::residual_small};

    broyden_jacobian jacobian(n);
    std::vector<double> g = work_array(n);
    std::vector<double> p = work_array(n);
    std::vector<double> xold = work_array(n);
    std::vector<double> fvcold = work_array(n);
    const double stpmax = longest_step(x);
    bool restrt = true;
    for (int its = 1; its <= options.MAXITS; ++its) {
        if (options.on_iteration) options.on_iteration(its, options.MAXITS);

        if (restrt)
            jacobian.restart(system, x, fvec);
        else
            jacobian.update(x, xold, fvec, fvcold, options.EPS);
        jacobian.step(fvec, p, g);
        std::ranges::copy(x, xold.begin());
        std::ranges::copy(fvec, fvcold.begin());
        const line_search_result search = lnsrch(system, xold, f, g, p, x, fvec, stpmax);
        f = search.f;

        if (residuals_below(fvec, options.TOLF)) return {solver_ending::residual_small, its, false};
        // A direction that leads nowhere may be the fault of an old Jacobian: one more try with a new one.
        const bool fresh = std::exchange(restrt, search.check);
        if (search.check && (fresh || gradient_vanishes(g, x, f, options.TOLMIN)))
            return {solver_ending::no_descent, its, true};
        if (!search.check && step_below(x, xold, options.TOLX)) return {solver_ending::step_small, its, false};
    }
    nrerror("BROYDN: MAXITS exceeded in broydn");
}

} // namespace kelvarin
