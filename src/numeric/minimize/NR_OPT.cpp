// SPDX-License-Identifier: MIT
#include "numeric/minimize/NR_OPT.h"

#include "numeric/linear/matrix.h"
#include "numeric/vector_sums.h"

#include <algorithm>
#include <cassert>
#include <cmath>
#include <cstddef>
#include <optional>
#include <utility>
#include <vector>

namespace kelvarin
{

namespace
{

/// A step and the change of the gradient over it, with the two products that the updates divide by.
struct curvature_pair
{
    std::vector<double> step;
    std::vector<double> change;
    double step_change = 0.0;
    double change_change = 0.0;
};

/// out = H v for the unit matrix, scaled and updated once by `pair`: the memoryless matrix of the restart direction.
/// [Shanno1978]
void times_memoryless(const curvature_pair& pair, std::span<const double> v, std::span<double> out)
{
    const double step_v = dot(pair.step, v);
    const double change_v = dot(pair.change, v);
    const double scale = quotient(pair.step_change, pair.change_change);
    const double of_change = quotient(step_v, pair.change_change);
    const double of_step = quotient(2.0 * step_v, pair.step_change) - quotient(change_v, pair.change_change);
    for (std::size_t i = 0; i < v.size(); ++i)
        out[i] = finite(scale * v[i] - of_change * pair.change[i] + of_step * pair.step[i]);
}

/// A line search's point: its place along the direction, the value and the slope there.
struct line_point
{
    double alpha = 0.0;
    double f = 0.0;
    double slope = 0.0;
};

/// The minimum of the cubic through two points and their slopes; where its discriminant is negative, as if it were 0.
double cubic_step(const line_point& before, const line_point& last)
{
    const double u1 = before.slope + last.slope - quotient(3.0 * (before.f - last.f), before.alpha - last.alpha);
    const double u2 = std::sqrt(std::max(0.0, finite(u1 * u1 - before.slope * last.slope)));
    return last.alpha -
           quotient((last.alpha - before.alpha) * (last.slope + u2 - u1), last.slope - before.slope + 2.0 * u2);
}

/// The next place to be tried: the cubic's minimum, kept well inside of a bracket and from lingering outside of one.
double next_alpha(const line_point& before, const line_point& last)
{
    const double at = cubic_step(before, last);
    const auto [least, greatest] = std::minmax(before.alpha, last.alpha);
    if (quotient(last.slope, before.slope) <= 0.0) {
        const bool inside = at >= 1.01 * least && at <= 0.99 * greatest;
        return inside ? at : (last.alpha + before.alpha) / 2.0;
    }
    if (last.slope > 0.0) return at > 0.0 && at < 0.99 * least ? at : least / 2.0;
    return at > 1.01 * greatest ? at : 2.0 * greatest;
}

class minimization
{
public:
    minimization(objective& target, std::span<double> x, const conmin_options& options)
        : target_(target), options_(options), x_(x), n_(x.size()), g_(n_), direction_(n_), old_x_(n_), old_g_(n_),
          point_(n_), work_(n_)
    {
    }

    conmin_summary run()
    {
        while (true) {
            if (const std::optional<conmin_ending> ended = start()) return end(*ended);
            if (const std::optional<conmin_ending> ended = iterate()) return end(*ended);
            // The direction led nowhere: once more from the gradient at the present point.
        }
    }

private:
    conmin_summary end(conmin_ending ending)
    {
        summary_.ending = ending;
        summary_.f = f_;
        return summary_;
    }

    void evaluate()
    {
        if (options_.on_round) options_.on_round(summary_.rounds + 1, options_.mxfun);
        f_ = finite(target_.value(x_));
        ridders_gradient(target_, x_, g_, point_);
        ++summary_.rounds;
    }

    bool is_stationary()
    {
        gsq_ = dot(g_, g_);
        return gsq_ <= options_.eps * options_.eps * std::max(1.0, dot(x_, x_));
    }

    /// Makes the negative gradient the direction.
    std::optional<conmin_ending> start()
    {
        evaluate();
        since_restart_ = target_.size();
        along_gradient_ = true;
        for (std::size_t i = 0; i < n_; ++i)
            direction_[i] = -g_[i];
        if (is_stationary()) return conmin_ending::converged;
        new_slope_ = -gsq_;
        alpha_ = 1.0;
        slope_ = new_slope_;
        return std::nullopt;
    }

    /// Major iterations until the method ends. Returns nullopt if it is to start anew.
    std::optional<conmin_ending> iterate()
    {
        while (true) {
            ++summary_.iterations;
            if (options_.on_iteration) options_.on_iteration(summary_.iterations);
            first_alpha();
            switch (search_line()) {
            case search_result::found:
                break;
            case search_result::too_many_rounds:
                return conmin_ending::too_many_rounds;
            case search_result::no_progress:
                if (along_gradient_) return conmin_ending::line_search_failed;
                return std::nullopt;
            }
            if (is_stationary()) return conmin_ending::converged;
            for (double& element : direction_)
                element *= alpha_;
            make_direction();
            new_slope_ = dot(direction_, g_);
            if (new_slope_ >= 0.0) {
                if (along_gradient_) return conmin_ending::no_descent_direction;
                return std::nullopt;
            }
            if (since_restart_ == target_.size()) since_restart_ = 0;
            ++since_restart_;
            along_gradient_ = false;
        }
    }

    /// The first place of a line search: as far down as the last step went, or the full step.
    void first_alpha()
    {
        alpha_ *= quotient(slope_, new_slope_);
        if (since_restart_ == 1 || options_.method == conmin_method::variable_metric) alpha_ = 1.0;
        if (along_gradient_) alpha_ = quotient(1.0, std::sqrt(gsq_));
        slope_ = new_slope_;
    }

    enum class search_result
    {
        found,
        too_many_rounds,
        no_progress
    };

    search_result search_line()
    {
        constexpr double least_step = 1e-20;
        const double fmin = f_;
        const int rounds_before = summary_.rounds;
        const double length = norm(direction_);
        line_point before = {0.0, fmin, slope_};
        std::ranges::copy(x_, old_x_.begin());
        old_g_ = g_;
        while (true) {
            if (alpha_ * length <= least_step) return search_result::no_progress;
            for (std::size_t i = 0; i < n_; ++i)
                x_[i] = finite(old_x_[i] + alpha_ * direction_[i]);
            evaluate();
            if (summary_.rounds > options_.mxfun) return search_result::too_many_rounds;
            const line_point last = {alpha_, f_, dot(g_, direction_)};
            if (last.f > fmin && last.slope < 0.0) {
                // Beyond a maximum along the line: back towards the start.
                alpha_ /= 3.0;
                before = {0.0, fmin, slope_};
                continue;
            }
            if (is_accepted(last, fmin, summary_.rounds - rounds_before)) return search_result::found;
            alpha_ = next_alpha(before, last);
            before = last;
        }
    }

    bool is_accepted(const line_point& last, double fmin, int trials) const
    {
        constexpr double sufficient_decrease = 0.0001;
        constexpr double sufficient_slope = 0.9;
        const double slopes = std::fabs(quotient(last.slope, slope_));
        if (last.f > fmin + sufficient_decrease * last.alpha * slope_ || slopes > sufficient_slope) return false;
        // Conjugate gradients want a second trial, unless the first one all but met the minimum.
        return options_.method == conmin_method::variable_metric || trials > 1 || slopes <= options_.eps;
    }

    /// The pair of the step just made.
    void take_pair(curvature_pair& pair) const
    {
        pair.step = direction_;
        pair.change.resize(n_);
        for (std::size_t i = 0; i < n_; ++i)
            pair.change[i] = g_[i] - old_g_[i];
        pair.step_change = dot(pair.step, pair.change);
        pair.change_change = dot(pair.change, pair.change);
    }

    void make_direction()
    {
        take_pair(last_);
        if (options_.method == conmin_method::variable_metric)
            make_metric_direction();
        else
            make_conjugate_direction();
    }

    void make_conjugate_direction()
    {
        constexpr double least_orthogonality = 0.2;
        // Powell's restart: the gradients are far from orthogonal.
        if (std::fabs(quotient(dot(g_, old_g_), gsq_)) > least_orthogonality) since_restart_ = target_.size();
        const bool restarts = since_restart_ == target_.size();
        if (restarts) beale_ = last_;
        times_memoryless(beale_, g_, point_);
        if (!restarts) {
            // The memoryless matrix, updated once more by the last step. [Shanno1978]
            times_memoryless(beale_, last_.change, work_);
            const double step_g = quotient(dot(last_.step, g_), last_.step_change);
            const double change_g = quotient(dot(last_.change, point_), last_.step_change);
            const double change_h = 1.0 + quotient(dot(last_.change, work_), last_.step_change);
            for (std::size_t i = 0; i < n_; ++i)
                point_[i] = finite(point_[i] - step_g * work_[i] + (change_h * step_g - change_g) * last_.step[i]);
        }
        for (std::size_t i = 0; i < n_; ++i)
            direction_[i] = -point_[i];
    }

    void make_metric_direction()
    {
        if (along_gradient_) {
            // The first matrix has the size that the first step shows. [ShannoPhua1980]
            h_ = matrix(target_.size(), target_.size());
            for (int i = 0; i < h_.rows(); ++i)
                h_(i, i) = quotient(last_.step_change, last_.change_change);
        }
        for (int i = 0; i < h_.rows(); ++i)
            work_[static_cast<std::size_t>(i)] = dot(h_.row(i), last_.change);
        const double of_steps =
            quotient(1.0 + quotient(dot(last_.change, work_), last_.step_change), last_.step_change);
        for (int i = 0; i < h_.rows(); ++i) {
            for (int j = 0; j < h_.columns(); ++j) {
                const auto row = static_cast<std::size_t>(i);
                const auto column = static_cast<std::size_t>(j);
                const double mixed = last_.step[row] * work_[column] + work_[row] * last_.step[column];
                h_(i, j) = finite(h_(i, j) + of_steps * last_.step[row] * last_.step[column] -
                                  quotient(mixed, last_.step_change));
            }
        }
        for (int i = 0; i < h_.rows(); ++i)
            direction_[static_cast<std::size_t>(i)] = -dot(h_.row(i), g_);
    }

    objective& target_;
    const conmin_options& options_;
    std::span<double> x_;
    std::size_t n_;
    std::vector<double> g_, direction_, old_x_, old_g_, point_, work_;
    conmin_summary summary_;
    double f_ = 0.0;
    /// |g|^2
    double gsq_ = 0.0;
    double alpha_ = 1.0;
    /// The slope at the start of the line search, and that of the direction that comes next.
    double slope_ = 0.0;
    double new_slope_ = 0.0;
    /// Iterations since Beale's vectors were taken; n at a restart.
    int since_restart_ = 0;
    /// The direction is the negative gradient.
    bool along_gradient_ = true;
    curvature_pair last_, beale_;
    matrix h_;
};

} // namespace

conmin_summary conmin(objective& target, std::span<double> x, const conmin_options& options)
{
    assert(static_cast<int>(x.size()) == target.size());
    return minimization(target, x, options).run();
}

} // namespace kelvarin
