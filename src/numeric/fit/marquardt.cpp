// SPDX-License-Identifier: MIT
#include "numeric/fit/marquardt.h"

#include "numeric/arithmetic_check.h"
#include "numeric/fit/curvature_matrix.h"
#include "numeric/linear/gauss_jordan.h"
#include "numeric/linear/matrix.h"

#include <cassert>
#include <cmath>
#include <cstddef>
#include <utility>
#include <vector>

namespace kelvarin
{

namespace
{

/// Half the curvature matrix and the gradient of the sum of squares at a point.
struct normal_system
{
    matrix alpha;
    std::vector<double> beta;
    double chisq = 0.0;
    std::vector<double> calculated;
};

/// The state of a fit between calls of mrqmin. All parameters are fitted and every observation has the weight 1, so the
/// covariance matrix stands in the order of the parameters and needs no sorting.
class marquardt_iteration
{
public:
    marquardt_iteration(const fit_model& model, std::span<const double> y, std::span<const double> guess)
        : model_(model), y_(y), a_(guess.begin(), guess.end()), covar_(size(), size()), accepted_(empty_system()),
          trial_(empty_system()), moved_(y.size()), gradient_(size(), static_cast<int>(y.size()))
    {
    }

    /// One trial step; `alamda` below 0 begins, 0 ends with the covariance matrix.
    void mrqmin(double& alamda)
    {
        if (alamda < 0.0) {
            alamda = 0.001;
            mrqcof(a_, accepted_);
            chisq_ = ochisq_ = accepted_.chisq;
        }
        covar_ = accepted_.alpha;
        for (int j = 0; j < size(); ++j)
            covar_(j, j) = finite(accepted_.alpha(j, j) * (1.0 + alamda));
        step_ = accepted_.beta;
        gaussj(covar_, step_);
        if (alamda == 0.0) return;

        trial_point_ = a_;
        for (std::size_t j = 0; j < step_.size(); ++j)
            trial_point_[j] = finite(trial_point_[j] + step_[j]);
        mrqcof(trial_point_, trial_);
        if (trial_.chisq < ochisq_) {
            alamda *= 0.1;
            chisq_ = ochisq_ = trial_.chisq;
            std::swap(accepted_, trial_);
            std::swap(a_, trial_point_);
        } else {
            alamda = finite(alamda * 10.0);
            chisq_ = ochisq_;
        }
    }

    double chisq() const { return chisq_; }
    const std::vector<double>& a() const { return a_; }
    const std::vector<double>& calculated() const { return accepted_.calculated; }
    const matrix& covar() const { return covar_; }
    fit_statistics statistics() const { return statistics_of_fit(y_, accepted_.calculated, size()); }
    int size() const { return static_cast<int>(a_.size()); }
    int degrees_of_freedom() const { return static_cast<int>(y_.size()) - size(); }

private:
    normal_system empty_system() const
    {
        return {matrix(size(), size()), std::vector<double>(a_.size()), 0.0, std::vector<double>(y_.size())};
    }

    void gaussj(matrix& a, std::span<double> b)
    {
        if (gauss_jordan_inverse(a, b, memory_) == elimination_status::singular) nrerror("GAUSSJ: Singular Matrix-2");
    }

    /// The model at `a` and, row by row of gradient_, its derivatives.
    void model_and_gradient(std::vector<double>& a, std::span<double> values)
    {
        constexpr double h = 1e-6;
        model_(a, values);
        require_finite(values);
        for (int j = 0; j < size(); ++j) {
            double& parameter = a[static_cast<std::size_t>(j)];
            const double before = parameter;
            parameter += h;
            model_(a, moved_);
            parameter = before;
            const std::span<double> derivative = gradient_.row(j);
            for (std::size_t i = 0; i < moved_.size(); ++i)
                derivative[i] = (moved_[i] - values[i]) / h;
        }
        require_finite(gradient_.values());
    }

    void mrqcof(std::vector<double>& a, normal_system& system)
    {
        model_and_gradient(a, system.calculated);
        system.chisq = sum_of_squares(y_, system.calculated);
        curvature_matrix(gradient_, y_, system.calculated, system.alpha, system.beta);
    }

    const fit_model& model_;
    std::span<const double> y_;
    std::vector<double> a_;
    std::vector<double> trial_point_;
    std::vector<double> step_;
    matrix covar_;
    normal_system accepted_;
    normal_system trial_;
    std::vector<double> moved_;
    inversion_workspace memory_;
    /// The derivatives by each parameter as a row.
    matrix gradient_;
    double chisq_ = 0.0;
    double ochisq_ = 0.0;
};

/// Whether the fit goes on after iteration k, which changed the sum of squares by `delta`.
bool goes_on(int k, double delta, double chisq, double first_chisq, double R2, const mrqmin_options& options)
{
    constexpr double perfect = 1e-20;
    constexpr double good_R2 = 0.98;
    const bool small = options.tol * chisq > delta;
    if (k > options.maxiter || chisq < perfect) return false;
    if (small && 0.01 * first_chisq > chisq) return false;
    if (small && R2 <= 1.0 && R2 > good_R2) return false;
    return R2 <= 1.0 - options.tol || R2 > 1.0;
}

} // namespace

nonlinear_fit fit_mrqmin(const fit_model& model, std::span<const double> y, std::span<const double> guess,
                         const mrqmin_options& options)
{
    assert(!guess.empty());
    constexpr int first_calls = 3;
    marquardt_iteration iteration(model, y, guess);
    nonlinear_fit fit;
    fit.alamda = -1.0;
    const auto call = [&] {
        ++fit.iterations;
        if (options.on_iteration) options.on_iteration(fit.iterations, options.maxiter);
        iteration.mrqmin(fit.alamda);
    };

    double first_chisq = 0.0;
    for (int k = 1; k <= first_calls; ++k) {
        call();
        if (k == 1) first_chisq = iteration.chisq();
    }
    bool more = true;
    while (more) {
        const double before = iteration.chisq();
        call();
        more = goes_on(fit.iterations, std::fabs(before - iteration.chisq()), iteration.chisq(), first_chisq,
                       iteration.statistics().R2, options);
    }
    fit.limit_reached = fit.iterations > options.maxiter;

    double no_damping = 0.0;
    iteration.mrqmin(no_damping);
    fit.a = iteration.a();
    fit.calculated = iteration.calculated();
    fit.chisq = iteration.chisq();
    fit.statistics = iteration.statistics();
    for (int j = 0; j < iteration.size(); ++j)
        fit.conf.push_back(
            half_width(fit.statistics.Variance, iteration.covar()(j, j), iteration.degrees_of_freedom()));
    return fit;
}

} // namespace kelvarin
