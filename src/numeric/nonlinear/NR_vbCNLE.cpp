// SPDX-License-Identifier: MIT
#include "numeric/nonlinear/NR_vbCNLE.h"

#include "numeric/arithmetic_check.h"
#include "numeric/forward_difference.h"
#include "numeric/linear/least_squares.h"
#include "numeric/vector_sums.h"
#include "numeric/work_array.h"

#include <algorithm>
#include <cassert>
#include <cmath>
#include <vector>

namespace kelvarin
{

namespace
{

constexpr double eps = 2.22044604925031e-16;
/// Pivots of the Jacobian below this part of the largest count as 0.
constexpr double rank_tolerance = 1e-12;
/// A pass whose stages are this short is not made.
constexpr double smallest_dtheta = 0.001;
/// Another pass is made only with stages this long: after one of a single stage and one of ten, none.
constexpr double smallest_next_dtheta = 0.09;
/// A change of the norm by this part of it is no progress.
constexpr double progress_needed = 0.001;
/// Stands for the norm of a point before the first of a stage.
constexpr double norm_before_any = 1e100;
/// The part of the way to zero that a constrained unknown may go in one step.
constexpr double way_to_zero = 0.99;

bool violates(std::span<const double> x, std::span<const sign_constraint> constraints)
{
    for (std::size_t i = 0; i < x.size(); ++i)
        if (constraints[i] != sign_constraint::any && x[i] < 0.0) return true;
    return false;
}

enum class ending
{
    converged,
    no_progress,
    iteration_limit,
    gave_up
};

/// One run. x_ holds the last accepted point, point_ the one under trial; fvec_ is F there.
class constrained_run
{
public:
    constrained_run(nonlinear_system& system, std::span<double> x, std::span<const sign_constraint> constraints,
                    std::span<double> fvec, const cnle_options& options)
        : system_(system), x_(x), constraints_(constraints), fvec_(fvec), options_(options),
          tol_(std::max(options.tol, std::sqrt(eps))), start_(x.begin(), x.end()), point_(start_),
          f0_(work_array(system.size())), accepted_fvec_(work_array(system.size())), step_(work_array(system.size())),
          right_side_(work_array(system.size())), jacobian_(work_matrix(system.size()))
    {
    }

    /// Passes of ever more, ever smaller stages, from the start each, until one ends at a root.
    cnle_result run()
    {
        evaluate_finite(system_, start_, f0_);
        if (given_up()) return result(ending::gave_up);
        for (double dtheta = 1.0;; dtheta /= 10.0) {
            if (dtheta < smallest_dtheta) return {cnle_code::minimal_dtheta, iterations_};
            const ending ended = pass(dtheta);
            if (ended != ending::no_progress || dtheta / 10.0 < smallest_next_dtheta) return result(ended);
        }
    }

private:
    cnle_result result(ending ended) const
    {
        switch (ended) {
        case ending::converged:
            return {cnle_code::converged, iterations_};
        case ending::no_progress:
            return {cnle_code::no_progress, iterations_};
        case ending::iteration_limit:
            return {cnle_code::iteration_limit, iterations_};
        case ending::gave_up:
            break;
        }
        return {.iterations = iterations_, .gave_up = true};
    }

    bool given_up() const { return options_.give_up && options_.give_up(); }

    /// All stages from theta = 1 to 0. Where they lead is a root only if F itself is small there.
    ending pass(double dtheta)
    {
        point_ = start_;
        theta_ = 1.0;
        damp_ = 0.5;
        ending ended = ending::converged;
        for (int left = static_cast<int>(1.0 / dtheta + 0.1); left > 0 && ended == ending::converged; --left) {
            theta_ = std::max(theta_ - dtheta, 0.0);
            ended = stage();
        }
        if (ended == ending::iteration_limit || ended == ending::gave_up) return ended;
        evaluate_finite(system_, point_, fvec_);
        if (given_up()) return ending::gave_up;
        std::ranges::copy(point_, x_.begin());
        return 10.0 * tol_ < norm(fvec_) ? ending::no_progress : ended;
    }

    /// Damped Newton steps at one theta.
    ending stage()
    {
        double prev_norm = norm_before_any;
        large_step_ = false;
        for (bool first = true;; first = false) {
            begin_iteration();
            evaluate_finite(system_, point_, fvec_);
            if (given_up()) return ending::gave_up;
            const double norm_now = homotopy_norm();
            if (!first && is_no_progress(norm_now, prev_norm)) return ending::no_progress;
            adapt_damping(norm_now, prev_norm);
            if (!first && is_rejected(norm_now, prev_norm))
                go_back();
            else
                prev_norm = accept(norm_now);
            if (iterations_ > options_.maxiter) return ending::iteration_limit;
            newton_step();
            if (given_up()) return ending::gave_up;
            move();
            if (norm(step_) < tol_) return ending::converged;
        }
    }

    /// The iteration behind the last allowed one only finds that the limit is passed.
    void begin_iteration()
    {
        ++iterations_;
        if (options_.on_iteration && iterations_ <= options_.maxiter)
            options_.on_iteration(iterations_, options_.maxiter);
    }

    /// Sum of squares of F(x) - theta F(x0).
    double homotopy_norm()
    {
        for (std::size_t i = 0; i < fvec_.size(); ++i)
            right_side_[i] = theta_ * f0_[i] - fvec_[i];
        return dot(right_side_, right_side_);
    }

    /// A norm of exactly 0 is left to the test of the step, which is 0 then.
    static bool is_no_progress(double norm_now, double prev_norm)
    {
        return std::fabs(norm_now - prev_norm) <= progress_needed * norm_now;
    }

    static bool is_rejected(double norm_now, double prev_norm) { return 1000.0 * prev_norm <= norm_now; }

    /// Damping is relaxed where the norm has not grown much, but not behind a step that was large, and
    /// tightened where the norm has grown.
    void adapt_damping(double norm_now, double prev_norm)
    {
        if (!large_step_ && 10.0 * prev_norm > norm_now && damp_ < 1.0) damp_ *= 2.0;
        if (norm_now > prev_norm) damp_ /= 4.0;
    }

    double accept(double norm_now)
    {
        std::ranges::copy(point_, x_.begin());
        std::ranges::copy(fvec_, accepted_fvec_.begin());
        return norm_now;
    }

    void go_back()
    {
        damp_ /= 4.0;
        std::ranges::copy(x_, point_.begin());
        std::ranges::copy(accepted_fvec_, fvec_.begin());
        homotopy_norm();
    }

    void newton_step()
    {
        relative_differences(system_, point_, fvec_, std::sqrt(eps), jacobian_);
        solve_least_squares(jacobian_, right_side_, rank_tolerance, step_);
    }

    void move()
    {
        const double factor = step_factor();
        large_step_ = step_is_large();
        for (std::size_t i = 0; i < point_.size(); ++i)
            point_[i] = finite(point_[i] + factor * step_[i]);
    }

    /// The damping, or less where a constrained unknown's undamped step would cross zero: then that one
    /// goes most of the way to zero, and the others keep the direction.
    double step_factor() const
    {
        double factor = damp_;
        for (std::size_t i = 0; i < point_.size(); ++i)
            if (constraints_[i] != sign_constraint::any && point_[i] + step_[i] < 0.0)
                factor = std::min(factor, way_to_zero * std::fabs(point_[i] / step_[i]));
        return factor;
    }

    bool step_is_large() const
    {
        for (std::size_t i = 0; i < point_.size(); ++i)
            if (std::fabs(step_[i]) > 10.0 * damp_ * std::max(std::fabs(point_[i]), 0.1)) return true;
        return false;
    }

    nonlinear_system& system_;
    std::span<double> x_;
    std::span<const sign_constraint> constraints_;
    std::span<double> fvec_;
    const cnle_options& options_;
    double tol_;
    std::vector<double> start_;
    std::vector<double> point_;
    std::vector<double> f0_;
    std::vector<double> accepted_fvec_;
    std::vector<double> step_;
    std::vector<double> right_side_;
    matrix jacobian_;
    double theta_ = 1.0;
    double damp_ = 0.5;
    bool large_step_ = false;
    int iterations_ = 0;
};

} // namespace

cnle_result solve_cnle(nonlinear_system& system, std::span<double> x, std::span<const sign_constraint> constraints,
                       std::span<double> fvec, const cnle_options& options)
{
    assert(static_cast<int>(x.size()) == system.size() && constraints.size() == x.size() && fvec.size() == x.size());
    std::ranges::fill(fvec, 0.0);
    if (x.empty() || options.maxiter < 1) return {cnle_code::bad_input};
    if (violates(x, constraints)) return {cnle_code::start_violates_constraint};
    return constrained_run(system, x, constraints, fvec, options).run();
}

} // namespace kelvarin
