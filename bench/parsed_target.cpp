// SPDX-License-Identifier: MIT
#include "parsed_target.h"

#include <gsl/gsl_errno.h>
#include <gsl/gsl_multimin.h>

#include <cmath>
#include <utility>

namespace kelvarin::bench
{

namespace
{

double gsl_value(const gsl_vector* x, void* target)
{
    return static_cast<parsed_target*>(target)->value(x);
}

void gsl_gradient(const gsl_vector* x, void* target, gsl_vector* g)
{
    static_cast<parsed_target*>(target)->gradient(x, g);
}

void gsl_both(const gsl_vector* x, void* target, double* f, gsl_vector* g)
{
    *f = gsl_value(x, target);
    gsl_gradient(x, target, g);
}

/// Its precision of line searches is that of the manual.
struct minimizer_row
{
    const gsl_multimin_fdfminimizer_type* type;
    double line_precision;
};

minimizer_row row_of(gsl_minimizer method)
{
    if (method == gsl_minimizer::conjugate_fr) return {gsl_multimin_fdfminimizer_conjugate_fr, 1e-4};
    return {gsl_multimin_fdfminimizer_vector_bfgs2, 0.1};
}

} // namespace

parsed_target::parsed_target(typed_target source) : source_(std::move(source)), slots_(source_.start)
{
    for (std::size_t i = 0; i < slots_.size(); ++i)
        parser_.DefineVar(source_.variables[i], &slots_[i]);
    parser_.SetExpr(source_.expression);
}

double parsed_target::value(const gsl_vector* x)
{
    for (std::size_t i = 0; i < slots_.size(); ++i)
        slots_[i] = gsl_vector_get(x, i);
    return parser_.Eval();
}

void parsed_target::gradient(const gsl_vector* x, gsl_vector* g)
{
    // Near the third root of the rounding unit.
    constexpr double step = 1e-5;
    for (std::size_t i = 0; i < slots_.size(); ++i)
        slots_[i] = gsl_vector_get(x, i);
    for (std::size_t i = 0; i < slots_.size(); ++i) {
        const double at = slots_[i];
        const double h = step * std::fmax(1.0, std::fabs(at));
        slots_[i] = at + h;
        const double above = parser_.Eval();
        slots_[i] = at - h;
        const double below = parser_.Eval();
        slots_[i] = at;
        gsl_vector_set(g, i, (above - below) / (2.0 * h));
    }
}

std::vector<double> parsed_target::solve(gsl_minimizer method, double tolerance)
{
    constexpr int most_iterations = 10000;
    constexpr double first_step = 0.01;
    const std::size_t n = slots_.size();
    const minimizer_row row = row_of(method);
    gsl_multimin_function_fdf function = {gsl_value, gsl_gradient, gsl_both, n, this};
    const gsl_vector_const_view start = gsl_vector_const_view_array(source_.start.data(), n);
    gsl_multimin_fdfminimizer* const work = gsl_multimin_fdfminimizer_alloc(row.type, n);
    gsl_multimin_fdfminimizer_set(work, &function, &start.vector, first_step, row.line_precision);
    for (int i = 0; i < most_iterations; ++i) {
        if (gsl_multimin_fdfminimizer_iterate(work) != GSL_SUCCESS) break;
        if (gsl_multimin_test_gradient(work->gradient, tolerance) == GSL_SUCCESS) break;
    }
    std::vector<double> found(work->x->data, work->x->data + n);
    gsl_multimin_fdfminimizer_free(work);
    return found;
}

yardstick minimize_by_gsl(const typed_target& source, gsl_minimizer method, double tolerance)
{
    // A line search that finds nothing lower is told by its status.
    gsl_set_error_handler_off();
    const auto target = std::make_shared<parsed_target>(source);
    yardstick result;
    result.values = std::make_shared<std::vector<double>>();
    result.run = [target, method, tolerance, values = result.values] { *values = target->solve(method, tolerance); };
    return result;
}

} // namespace kelvarin::bench
