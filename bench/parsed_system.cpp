// SPDX-License-Identifier: MIT
#include "parsed_system.h"

#include <gsl/gsl_errno.h>
#include <gsl/gsl_multiroots.h>

#include <algorithm>
#include <cmath>

namespace kelvarin::bench
{

namespace
{

constexpr int most_iterations = 1000;

int gsl_residuals(const gsl_vector* x, void* system, gsl_vector* f)
{
    static_cast<parsed_system*>(system)->evaluate({x->data, x->size}, {f->data, f->size});
    return GSL_SUCCESS;
}

bool is_solved(const gsl_vector* f, double tolerance)
{
    const std::span<const double> residuals(f->data, f->size);
    return std::ranges::all_of(residuals, [&](double residual) { return std::fabs(residual) < tolerance; });
}

} // namespace

parsed_system::parsed_system(std::span<const std::string> unknowns, std::span<const named_text> explicit_equations,
                             std::span<const std::string> residuals)
{
    for (const std::string& name : unknowns)
        unknowns_.push_back(place_of(name));
    for (const named_text& equation : explicit_equations) {
        explicit_places_.push_back(place_of(equation.name));
        add(explicit_equations_, equation.text);
    }
    for (const std::string& text : residuals)
        add(residuals_, text);
}

double* parsed_system::place_of(const std::string& name)
{
    const auto [entry, is_new] = places_.try_emplace(name, nullptr);
    if (is_new) entry->second = &values_.emplace_back(0.0);
    return entry->second;
}

double* parsed_system::make_variable(const char* name, void* system)
{
    return static_cast<parsed_system*>(system)->place_of(name);
}

mu::Parser& parsed_system::add(std::deque<mu::Parser>& parsers, const std::string& text)
{
    mu::Parser& parser = parsers.emplace_back();
    parser.SetVarFactory(make_variable, this);
    parser.SetExpr(text);
    return parser;
}

void parsed_system::evaluate(std::span<const double> x, std::span<double> f)
{
    for (std::size_t i = 0; i < x.size(); ++i)
        *unknowns_[i] = x[i];
    for (std::size_t i = 0; i < explicit_equations_.size(); ++i)
        *explicit_places_[i] = explicit_equations_[i].Eval();
    for (std::size_t i = 0; i < f.size(); ++i)
        f[i] = residuals_[i].Eval();
}

hybrids_result solve_by_hybrids(parsed_system& system, std::span<double> x, double tolerance)
{
    gsl_multiroot_function function = {gsl_residuals, x.size(), &system};
    gsl_multiroot_fsolver* solver = gsl_multiroot_fsolver_alloc(gsl_multiroot_fsolver_hybrids, x.size());
    const gsl_vector_const_view start = gsl_vector_const_view_array(x.data(), x.size());
    gsl_multiroot_fsolver_set(solver, &function, &start.vector);
    hybrids_result result;
    result.converged = is_solved(solver->f, tolerance);
    while (!result.converged && result.iterations < most_iterations) {
        ++result.iterations;
        if (gsl_multiroot_fsolver_iterate(solver) != GSL_SUCCESS) break;
        result.converged = is_solved(solver->f, tolerance);
    }
    std::copy_n(solver->x->data, x.size(), x.begin());
    gsl_multiroot_fsolver_free(solver);
    return result;
}

} // namespace kelvarin::bench
