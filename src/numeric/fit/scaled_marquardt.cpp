// SPDX-License-Identifier: MIT
#include "numeric/fit/scaled_marquardt.h"

#include "numeric/arithmetic_check.h"
#include "numeric/fit/curvature_matrix.h"
#include "numeric/linear/matrix.h"
#include "numeric/linear/symmetric_eigen.h"

#include <algorithm>
#include <cassert>
#include <cmath>
#include <cstddef>
#include <utility>
#include <vector>

namespace kelvarin
{

namespace
{

constexpr double largest_lambda = 1e6;

struct parameter_range
{
    double lower = 0.0;
    double upper = 0.0;
};

class scaled_iteration
{
public:
    scaled_iteration(const fit_model& model, std::span<const double> y, std::span<const double> guess)
        : model_(model), y_(y), a_(guess.begin(), guess.end()), calculated_(y.size()), trial_values_(y.size()),
          raised_(y.size()), lowered_(y.size()), gradient_(size(), static_cast<int>(y.size())), scale_(a_.size()),
          scaled_gradient_(a_.size()), normal_(size(), size()), delta_(a_.size()), trial_(a_.size())
    {
        for (const double value : a_)
            ranges_.push_back({value - 1.0 - 100.0 * std::fabs(value), value + 1.0 + 100.0 * std::fabs(value)});
        evaluate(a_, calculated_);
        SSE_ = sum_of_squares(y_, calculated_);
    }

    int size() const { return static_cast<int>(a_.size()); }
    const std::vector<double>& a() const { return a_; }
    const std::vector<double>& calculated() const { return calculated_; }

    /// The scaled normal matrix at the present point, as eigenvalues and eigenvectors. The derivatives are those by
    /// lm_gradient.
    void lm_build()
    {
        lm_gradient();
        curvature_matrix(gradient_, y_, calculated_, normal_, scaled_gradient_);
        for (int j = 0; j < size(); ++j) {
            const double s = std::sqrt(normal_(j, j));
            if (s == 0.0) nrerror("L-M: Singular Matrix");
            scale_[static_cast<std::size_t>(j)] = s;
            scaled_gradient_[static_cast<std::size_t>(j)] = finite(scaled_gradient_[static_cast<std::size_t>(j)] / s);
        }
        for (int i = 0; i < size(); ++i)
            for (int j = 0; j < size(); ++j)
                normal_(i, j) /= scale_[static_cast<std::size_t>(i)] * scale_[static_cast<std::size_t>(j)];
        symmetric_eigen(normal_, pairs_);
    }

    /// Tries dampings from `lambda` on until a step lowers the sum of squares; false where none up to the largest does.
    bool take_step(double& lambda)
    {
        while (lambda <= largest_lambda) {
            lm_step(lambda);
            bool taken = false;
            if (within_ranges(trial_)) {
                evaluate(trial_, trial_values_);
                const double SSE_new = sum_of_squares(y_, trial_values_);
                if (SSE_new < SSE_) {
                    lambda /= 100.0;
                    accept(SSE_new);
                    taken = true;
                }
            }
            lambda *= 10.0;
            if (taken) return true;
        }
        return false;
    }

    /// Whether the last step changed nothing by more than 1e-5 of itself.
    bool lm_converged() const
    {
        constexpr double precision = 1e-5;
        for (std::size_t j = 0; j < a_.size(); ++j) {
            if (previous_a_[j] != 0.0 && std::fabs(1.0 - a_[j] / previous_a_[j]) > precision) return false;
        }
        return !(previous_SSE_ != 0.0 && std::fabs(1.0 - SSE_ / previous_SSE_) > precision);
    }

    /// The diagonal element of the inverse of the normal matrix; eigenvalues of next to nothing are left out.
    double inverse_diagonal(int j) const
    {
        double sum = 0.0;
        for_each_used_pair(0.0, [&](int k, double e) { sum += pairs_.vectors(j, k) * pairs_.vectors(j, k) / e; });
        const double s = scale_[static_cast<std::size_t>(j)];
        return finite(sum / (s * s));
    }

private:
    void evaluate(std::span<const double> a, std::span<double> values)
    {
        model_(a, values);
        require_finite(values);
    }

    /// The derivatives by each parameter, as rows of gradient_.
    void lm_gradient()
    {
        constexpr double relative_step = 0.01;
        for (int j = 0; j < size(); ++j) {
            double& parameter = a_[static_cast<std::size_t>(j)];
            const double before = parameter;
            const double h = before == 0.0 ? relative_step : relative_step * before;
            parameter = before + h;
            model_(a_, raised_);
            parameter = before - h;
            model_(a_, lowered_);
            parameter = before;
            const std::span<double> derivative = gradient_.row(j);
            for (std::size_t i = 0; i < raised_.size(); ++i)
                derivative[i] = (raised_[i] - lowered_[i]) / 2.0 / h;
        }
        require_finite(gradient_.values());
    }

    template <class Visit> void for_each_used_pair(double lambda, Visit visit) const
    {
        constexpr double least_eigenvalue = 1e-6;
        for (int k = 0; k < size(); ++k) {
            const double e = pairs_.values[static_cast<std::size_t>(k)];
            if (lambda > 0.0 || e > least_eigenvalue) visit(k, e);
        }
    }

    /// The parameters behind the step of a damping, as trial_.
    void lm_step(double lambda)
    {
        std::ranges::fill(delta_, 0.0);
        for_each_used_pair(lambda, [&](int k, double e) {
            double projection = 0.0;
            for (int i = 0; i < size(); ++i)
                projection += pairs_.vectors(i, k) * scaled_gradient_[static_cast<std::size_t>(i)];
            const double factor = quotient(projection, e + lambda);
            for (int i = 0; i < size(); ++i)
                delta_[static_cast<std::size_t>(i)] += factor * pairs_.vectors(i, k);
        });
        for (std::size_t j = 0; j < trial_.size(); ++j)
            trial_[j] = finite(a_[j] + delta_[j] / scale_[j]);
    }

    bool within_ranges(std::span<const double> a) const
    {
        for (std::size_t j = 0; j < a.size(); ++j) {
            if (a[j] < ranges_[j].lower || a[j] > ranges_[j].upper) return false;
        }
        return true;
    }

    void accept(double SSE_new)
    {
        previous_a_ = a_;
        std::swap(a_, trial_);
        previous_SSE_ = std::exchange(SSE_, SSE_new);
        std::swap(calculated_, trial_values_);
    }

    const fit_model& model_;
    std::span<const double> y_;
    std::vector<double> a_;
    std::vector<double> previous_a_;
    std::vector<parameter_range> ranges_;
    std::vector<double> calculated_;
    std::vector<double> trial_values_;
    std::vector<double> raised_;
    std::vector<double> lowered_;
    matrix gradient_;
    /// The roots of the diagonal of the normal matrix.
    std::vector<double> scale_;
    std::vector<double> scaled_gradient_;
    matrix normal_;
    std::vector<double> delta_;
    std::vector<double> trial_;
    eigen_pairs pairs_;
    double SSE_ = 0.0;
    double previous_SSE_ = 0.0;
};

} // namespace

nonlinear_fit fit_scaled_marquardt(const fit_model& model, std::span<const double> y, std::span<const double> guess,
                                   const scaled_marquardt_options& options)
{
    assert(!guess.empty());
    constexpr int least_limit = 40;
    const int limit = std::max(options.maxiter, least_limit);
    scaled_iteration iteration(model, y, guess);
    nonlinear_fit fit;
    double lambda = 0.01;
    bool taken = true;
    bool converged = false;
    while (taken && !converged && fit.iterations < limit) {
        if (options.on_iteration) options.on_iteration(fit.iterations + 1, limit);
        iteration.lm_build();
        ++fit.iterations;
        taken = iteration.take_step(lambda);
        converged = taken && iteration.lm_converged();
    }
    fit.limit_reached = fit.iterations >= limit;
    if (taken) iteration.lm_build();

    fit.a = iteration.a();
    fit.calculated = iteration.calculated();
    fit.statistics = statistics_of_fit(y, fit.calculated, iteration.size());
    const int degrees_of_freedom = static_cast<int>(y.size()) - iteration.size();
    for (int j = 0; j < iteration.size(); ++j)
        fit.conf.push_back(half_width(fit.statistics.Variance, iteration.inverse_diagonal(j), degrees_of_freedom));
    return fit;
}

} // namespace kelvarin
