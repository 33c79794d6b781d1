// SPDX-License-Identifier: MIT
#include "parsed_fit.h"

#include <gsl/gsl_errno.h>
#include <gsl/gsl_multifit.h>
#include <gsl/gsl_multifit_nlinear.h>

#include <cmath>
#include <utility>

namespace kelvarin::bench
{

namespace
{

int gsl_residuals(const gsl_vector* a, void* fit, gsl_vector* residuals)
{
    // With forward differences the residuals are a column of the Jacobian, which is not contiguous.
    return static_cast<parsed_fit*>(fit)->evaluate(a, residuals) ? GSL_SUCCESS : GSL_EDOM;
}

} // namespace

parsed_fit::parsed_fit(typed_fit source)
    : source_(std::move(source)), slots_(source_.parameters.size() + source_.variables.size())
{
    double* slot = slots_.data();
    for (const std::string& name : source_.parameters)
        parser_.DefineVar(name, slot++);
    for (const std::string& name : source_.variables)
        parser_.DefineVar(name, slot++);
    parser_.DefineFun("arctan", static_cast<double (*)(double)>(std::atan));
    parser_.SetExpr(source_.expression);
}

bool parsed_fit::evaluate(const gsl_vector* parameters, gsl_vector* residuals)
{
    const std::size_t p = source_.parameters.size();
    for (std::size_t j = 0; j < p; ++j)
        slots_[j] = gsl_vector_get(parameters, j);
    double* const rows = slots_.data() + p;
    for (std::size_t i = 0; i < source_.y.size(); ++i) {
        for (std::size_t k = 0; k < source_.x.size(); ++k)
            rows[k] = source_.x[k][i];
        const double residual = parser_.Eval() - source_.y[i];
        if (!std::isfinite(residual)) return false;
        gsl_vector_set(residuals, i, residual);
    }
    return true;
}

std::vector<double> parsed_fit::solve(double tolerance)
{
    constexpr std::size_t most_iterations = 1000;
    gsl_multifit_nlinear_parameters options = gsl_multifit_nlinear_default_parameters();
    gsl_multifit_nlinear_fdf function = {};
    function.f = gsl_residuals;
    function.n = source_.y.size();
    function.p = source_.parameters.size();
    function.params = this;
    gsl_multifit_nlinear_workspace* const work =
        gsl_multifit_nlinear_alloc(gsl_multifit_nlinear_trust, &options, function.n, function.p);
    const gsl_vector_const_view start = gsl_vector_const_view_array(source_.start.data(), function.p);
    std::vector<double> found;
    int ending = 0;
    if (gsl_multifit_nlinear_init(&start.vector, &function, work) == GSL_SUCCESS) {
        gsl_multifit_nlinear_driver(most_iterations, tolerance, tolerance, 0.0, nullptr, nullptr, &ending, work);
        found.assign(work->x->data, work->x->data + function.p);
    }
    gsl_multifit_nlinear_free(work);
    return found;
}

yardstick fit_by_gsl(const typed_fit& source, double tolerance)
{
    // What fails is told by its status.
    gsl_set_error_handler_off();
    const auto fit = std::make_shared<parsed_fit>(source);
    yardstick result;
    result.values = std::make_shared<std::vector<double>>();
    result.run = [fit, tolerance, values = result.values] { *values = fit->solve(tolerance); };
    return result;
}

yardstick linear_fit_by_gsl(const matrix& design, std::span<const double> y)
{
    struct workspace
    {
        matrix design;
        std::vector<double> y;
        matrix covariance;
    };
    const auto data = std::make_shared<workspace>(
        workspace{design, {y.begin(), y.end()}, matrix(design.columns(), design.columns())});
    yardstick result;
    result.values = std::make_shared<std::vector<double>>(static_cast<std::size_t>(design.columns()));
    result.run = [data, values = result.values] {
        const std::size_t n = data->y.size();
        const std::size_t p = values->size();
        gsl_multifit_linear_workspace* const work = gsl_multifit_linear_alloc(n, p);
        const gsl_matrix_view columns = gsl_matrix_view_array(data->design.values().data(), n, p);
        const gsl_vector_view right_side = gsl_vector_view_array(data->y.data(), n);
        gsl_vector_view coef = gsl_vector_view_array(values->data(), p);
        gsl_matrix_view covariance = gsl_matrix_view_array(data->covariance.values().data(), p, p);
        double chisq = 0.0;
        gsl_multifit_linear(&columns.matrix, &right_side.vector, &coef.vector, &covariance.matrix, &chisq, work);
        gsl_multifit_linear_free(work);
    };
    return result;
}

} // namespace kelvarin::bench
