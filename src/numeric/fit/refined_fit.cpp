// SPDX-License-Identifier: MIT
#include "numeric/fit/refined_fit.h"

#include "numeric/arithmetic_check.h"
#include "numeric/fit/curvature_matrix.h"
#include "numeric/linear/thin_qr.h"

#include <algorithm>
#include <cassert>
#include <cmath>
#include <cstddef>
#include <optional>
#include <utility>

namespace kelvarin
{

namespace
{

std::vector<double> values_at(const fit_model& model, std::span<const double> a, std::size_t n)
{
    std::vector<double> values(n);
    model(a, values);
    require_finite(values);
    return values;
}

class damped_iteration
{
public:
    damped_iteration(const fit_model& model, std::span<const double> y, std::span<const double> start)
        : model_(model), y_(y), scale_(start.size(), 0.0)
    {
        fit_.a.assign(start.begin(), start.end());
        fit_.calculated = values_at(model_, fit_.a, y_.size());
        fit_.SSE = sum_of_squares(y_, fit_.calculated);
        linearise();
    }

    /// One damped step, or the wish for more damping. Returns false where the sum of squares is as small as its
    /// rounding lets it be, or no damping helps.
    bool step()
    {
        constexpr double least_part = 1e-13;
        constexpr double most_damping = 1e30;
        constexpr double least_ratio = 1e-4;
        const std::vector<double> d = solve_damped(lambda_);
        const double predicted = predicted_reduction(d);
        if (!(predicted > least_part * fit_.SSE)) return false;
        const std::optional<double> reached = try_step(d);
        const double ratio = reached ? (fit_.SSE - *reached) / predicted : -1.0;
        if (ratio > least_ratio) {
            take(*reached);
            const double off = 2.0 * ratio - 1.0;
            lambda_ *= std::max(1.0 / 3.0, 1.0 - off * off * off);
            growth_ = 2.0;
            return true;
        }
        lambda_ *= growth_;
        growth_ *= 2.0;
        return lambda_ < most_damping;
    }

    /// Steps without damping, whatever rounding makes of the sum of squares, while they get shorter. Returns whether
    /// they became small beside the parameters' own precision.
    bool settle()
    {
        constexpr int most_steps = 100;
        constexpr double small = 1e-6;
        constexpr double rounding = 1e-12;
        double before = length_of(solve_damped(0.0));
        double length_of_y = 0.0;
        for (const double value : y_)
            length_of_y = std::hypot(length_of_y, value);
        const double short_step = std::max(small * std::sqrt(fit_.SSE), rounding * length_of_y);
        bool settled = before <= short_step;
        for (int k = 0; k < most_steps && before > 0.0; ++k) {
            const std::vector<double> d = solve_damped(0.0);
            const std::optional<double> reached = try_step(d);
            if (!reached || *reached > fit_.SSE * (1.0 + small)) break;
            const refined_fit former = fit_;
            take(*reached);
            const double length = length_of(solve_damped(0.0));
            settled = settled || length <= short_step;
            if (length >= 0.95 * before) {
                if (length > before) fit_ = former;
                break;
            }
            before = length;
        }
        return settled;
    }

    refined_fit take_fit() { return std::move(fit_); }

private:
    void linearise()
    {
        fit_.gradient = model_gradient(model_, fit_.a, y_.size());
        for (int j = 0; j < fit_.gradient.rows(); ++j) {
            double sum = 0.0;
            for (const double element : fit_.gradient.row(j))
                sum += element * element;
            double& scale = scale_[static_cast<std::size_t>(j)];
            scale = std::max(scale, std::sqrt(sum));
        }
    }

    /// The step that brings J d nearest to the residuals, each parameter held back by lambda times its scale.
    std::vector<double> solve_damped(double lambda) const
    {
        const int p = fit_.gradient.rows();
        const int n = fit_.gradient.columns();
        matrix columns(p, n + p);
        for (int j = 0; j < p; ++j) {
            std::ranges::copy(fit_.gradient.row(j), columns.row(j).begin());
            columns(j, n + j) = std::sqrt(lambda) * scale_[static_cast<std::size_t>(j)];
        }
        std::vector<double> b(static_cast<std::size_t>(n + p), 0.0);
        for (std::size_t i = 0; i < y_.size(); ++i)
            b[i] = y_[i] - fit_.calculated[i];
        return least_squares_solution(factor_columns(columns), b);
    }

    std::vector<double> change_by(std::span<const double> d) const
    {
        std::vector<double> change(y_.size(), 0.0);
        for (int j = 0; j < fit_.gradient.rows(); ++j)
            for (std::size_t i = 0; i < change.size(); ++i)
                change[i] += fit_.gradient.row(j)[i] * d[static_cast<std::size_t>(j)];
        return change;
    }

    double length_of(std::span<const double> d) const
    {
        double sum = 0.0;
        for (const double each : change_by(d))
            sum += each * each;
        return std::sqrt(sum);
    }

    double predicted_reduction(std::span<const double> d) const
    {
        const std::vector<double> change = change_by(d);
        double sum = 0.0;
        for (std::size_t i = 0; i < change.size(); ++i)
            sum += change[i] * (2.0 * (y_[i] - fit_.calculated[i]) - change[i]);
        return sum;
    }

    std::optional<double> try_step(std::span<const double> d)
    {
        trial_ = fit_.a;
        for (std::size_t j = 0; j < trial_.size(); ++j)
            trial_[j] += d[j];
        try {
            trial_values_ = values_at(model_, trial_, y_.size());
            return sum_of_squares(y_, trial_values_);
        } catch (const runtime_failure&) {
            return std::nullopt;
        }
    }

    void take(double SSE)
    {
        std::swap(fit_.a, trial_);
        std::swap(fit_.calculated, trial_values_);
        fit_.SSE = SSE;
        linearise();
    }

    const fit_model& model_;
    std::span<const double> y_;
    /// The greatest lengths of the columns so far.
    std::vector<double> scale_;
    refined_fit fit_;
    std::vector<double> trial_;
    std::vector<double> trial_values_;
    double lambda_ = 1e-3;
    double growth_ = 2.0;
};

} // namespace

matrix model_gradient(const fit_model& model, std::span<const double> a, std::size_t n)
{
    constexpr double relative_step = 3e-5;
    matrix gradient(static_cast<int>(a.size()), static_cast<int>(n));
    std::vector<double> moved(a.begin(), a.end());
    const auto at = [&](std::size_t j, double value) {
        moved[j] = value;
        return values_at(model, moved, n);
    };
    for (std::size_t j = 0; j < a.size(); ++j) {
        const double h = relative_step * (a[j] == 0.0 ? 1.0 : std::fabs(a[j]));
        const std::vector<double> up = at(j, a[j] + h);
        const std::vector<double> down = at(j, a[j] - h);
        const std::vector<double> far_up = at(j, a[j] + 2.0 * h);
        const std::vector<double> far_down = at(j, a[j] - 2.0 * h);
        moved[j] = a[j];
        const std::span<double> row = gradient.row(static_cast<int>(j));
        for (std::size_t i = 0; i < n; ++i)
            row[i] = (8.0 * (up[i] - down[i]) - (far_up[i] - far_down[i])) / (12.0 * h);
    }
    require_finite(gradient.values());
    return gradient;
}

refined_fit refine_fit(const fit_model& model, std::span<const double> y, std::span<const double> start,
                       const refine_options& options)
{
    assert(!start.empty());
    damped_iteration iteration(model, y, start);
    int count = 0;
    bool more = true;
    while (more && count < options.maxiter) {
        ++count;
        if (options.on_iteration) options.on_iteration(count, options.maxiter);
        try {
            more = iteration.step();
        } catch (const runtime_failure&) {
            // The derivatives at a new point can't be had.
            more = false;
        }
    }
    bool settled = false;
    try {
        settled = iteration.settle();
    } catch (const runtime_failure&) {
        more = true;
    }
    refined_fit fit = iteration.take_fit();
    fit.iterations = count;
    fit.converged = settled && !more;
    return fit;
}

} // namespace kelvarin
