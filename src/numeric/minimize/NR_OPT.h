// SPDX-License-Identifier: MIT
#pragma once

#include "numeric/minimize/objective.h"

#include <functional>
#include <span>

namespace kelvarin
{

enum class conmin_method
{
    /// Memoryless conjugate gradients with Beale's restarts.
    conjugate_gradient = 1,
    /// The variable metric of Broyden, Fletcher, Goldfarb and Shanno.
    variable_metric = 2
};

enum class conmin_ending
{
    converged = 0,
    /// More rounds of value and gradient than allowed.
    too_many_rounds = 1,
    line_search_failed = 2,
    no_descent_direction = 3
};

struct conmin_options
{
    conmin_method method = conmin_method::conjugate_gradient;
    /// Ends where |g| <= eps max(1, |x|).
    double eps = 1e-9;
    /// The most rounds of value and gradient, compared once one is made.
    int mxfun = 100;
    /// Told of each round before it is made; what it throws ends the method.
    std::function<void(int round, int limit)> on_round = {};
    /// Told of each iteration before its line search; the last round was made at its point.
    std::function<void(int iteration)> on_iteration = {};
};

struct conmin_summary
{
    conmin_ending ending = conmin_ending::converged;
    int iterations = 0;
    /// Rounds of value and gradient.
    int rounds = 0;
    /// The value at the x that is left, which after endings 1 and 2 is the last trial and not the best point.
    double f = 0.0;
};

/// Minimizes with the gradient of ridders_gradient, from the start in `x` on; the result stays there. Throws
/// runtime_failure 11 or 6 where its arithmetic divides by zero or overflows. [ShannoPhua1980], the directions after
/// [Shanno1978].
conmin_summary conmin(objective& target, std::span<double> x, const conmin_options& options);

} // namespace kelvarin
