// SPDX-License-Identifier: MIT
#pragma once

#include "numeric/backtracking_search.h"
#include "numeric/linear/matrix.h"
#include "numeric/nonlinear/nonlinear_system.h"

#include <span>

/// Solvers of nonlinear systems. All take the start in `x` and leave the last accepted point there, also
/// when they end by an exception; `fvec` holds the residuals as the method left them, which need not be
/// those of the last x. They throw runtime_failure: 8888 where the method gives up (nrerror), 6 or 11 where
/// their own arithmetic overflows or divides by zero.
namespace kelvarin
{

enum class solver_ending
{
    not_run,
    /// The residual test held.
    residual_small,
    /// The step test held.
    step_small,
    /// The line search could not move.
    no_descent,
    /// mnewt only: its trials ran out.
    trials_used
};

struct solver_summary
{
    solver_ending ending = solver_ending::not_run;
    /// Iterations begun, as the hook counts them; the trials of mnewt.
    int iterations = 0;
    /// The published `check` flag: a spurious minimum is suspected.
    bool check = false;
};

struct mnewt_options
{
    /// Most trials; at least 1 is expected.
    int ntrial = 150;
    /// Ends when the sum of absolute steps is <= tolx.
    double tolx = 1e-7;
    /// Ends when the sum of absolute residuals is <= tolf.
    double tolf = 1e-7;
    iteration_hook on_iteration = {};
};

struct newt_options
{
    int MAXITS = 150;
    /// Ends when the largest absolute residual is < TOLF (at the start: < 0.01 TOLF).
    double TOLF = 1e-7;
    /// Spurious convergence when the largest scaled gradient is < TOLMIN.
    double TOLMIN = 1e-7;
    /// Ends when the largest relative step is < TOLX.
    double TOLX = 1e-7;
    iteration_hook on_iteration = {};
};

struct broydn_options
{
    int MAXITS = 150;
    /// An update element below EPS times the residuals' size counts as 0.
    double EPS = 1e-7;
    double TOLF = 1e-7;
    double TOLX = 1e-7;
    double TOLMIN = 1e-7;
    iteration_hook on_iteration = {};
};

/// Plain Newton iteration with the absolute difference step of `usrfun`. [Press1992] sec. 9.6
solver_summary mnewt(nonlinear_system& system, std::span<double> x, std::span<double> fvec,
                     const mnewt_options& options);

/// Newton iteration with line search. [Press1992] sec. 9.7, [DennisSchnabel1983] A6.3.1
solver_summary newt(nonlinear_system& system, std::span<double> x, std::span<double> fvec, const newt_options& options);

/// Broyden's method with line search and QR updates. [Press1992] sec. 9.7, [Broyden1965]
solver_summary broydn(nonlinear_system& system, std::span<double> x, std::span<double> fvec,
                      const broydn_options& options);

/// Jacobian by forward differences with the relative step 1e-07 |x(j)|, or 1e-07 at 0, as represented;
/// fvec = F(x) is given.
void fdjac(nonlinear_system& system, std::span<const double> x, std::span<const double> fvec, matrix& df);

/// fvec = F(x), then the Jacobian by forward differences with the absolute step 1e-05.
void usrfun(nonlinear_system& system, std::span<const double> x, std::span<double> fvec, matrix& fjac);

/// fvec = F(x); returns half the sum of its squares.
double fmin_nle(nonlinear_system& system, std::span<const double> x, std::span<double> fvec);

/// Backtracking line search from xold along p (scaled down to length stpmax) for f = fmin_nle, with g its
/// gradient at xold and fold its value there; leaves the point in x and its residuals in fvec, which after
/// `check` are those of the last trial. [DennisSchnabel1983] A6.3.1
line_search_result lnsrch(nonlinear_system& system, std::span<const double> xold, double fold,
                          std::span<const double> g, std::span<double> p, std::span<double> x, std::span<double> fvec,
                          double stpmax);
/// The same with memory for the trial points.
line_search_result lnsrch(nonlinear_system& system, std::span<const double> xold, double fold,
                          std::span<const double> g, std::span<double> p, std::span<double> x, std::span<double> fvec,
                          double stpmax, std::span<double> point);

/// The larger of two numbers, b on a tie.
double FMAX(double a, double b);

} // namespace kelvarin
