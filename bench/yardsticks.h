// SPDX-License-Identifier: MIT
#pragma once

#include "formulas.h"
#include "numeric/linear/matrix.h"

#include <cstdint>
#include <functional>
#include <memory>
#include <span>
#include <string>
#include <vector>

/// What others make of the same work: the parser muParser, the GNU Scientific Library, and CVODE. Where the build
/// found none of them, every yardstick is empty and its lines are left out.
namespace kelvarin::bench
{

struct yardstick
{
    /// The work; empty where there is no yardstick.
    std::function<void()> run;
    /// What the last run found.
    std::shared_ptr<std::vector<double>> values;

    explicit operator bool() const { return static_cast<bool>(run); }
};

/// One evaluation of a formula: a parser per equation, compiled before.
yardstick parsed_evaluation(const formula& source);
/// Compiling all equations of a formula by one parser that knows all variables; the first evaluation of
/// each is part of it, since that is when muParser compiles.
yardstick parsed_compiling(const formula& source);
/// Forward differences of the tridiagonal system: for each column only the rows that depend on it. The
/// values are the elements of the band, column by column.
yardstick parsed_band_columns(int n, std::span<const double> x, std::span<const double> moved,
                              std::span<const double> divisors);
/// LU decomposition of a copy of `a`, and the solution.
yardstick lu_solve(const matrix& a, std::span<const double> b);
/// The hybrid method with scaling on the tridiagonal system from -1 until each residual is below
/// `tolerance`; the equations compiled before.
yardstick hybrids_on_broyden(int n, double tolerance);

/// A nonlinear fit as it is typed.
struct typed_fit
{
    std::string expression;
    std::vector<std::string> parameters;
    std::vector<std::string> variables;
    /// The values of each variable.
    std::vector<std::vector<double>> x;
    std::vector<double> y;
    std::vector<double> start;
};
/// The parameters by gsl_multifit_nlinear with its method lm, the model compiled before; empty where it fails.
yardstick fit_by_gsl(const typed_fit& source, double tolerance);
/// Coefficients and their covariance by gsl_multifit_linear, which takes the singular values of the design.
yardstick linear_fit_by_gsl(const matrix& design, std::span<const double> y);

/// Differential equations as texts, from x = 0.
struct initial_values
{
    /// x, then the variables.
    std::vector<std::string> unknowns;
    /// In the order of their evaluation.
    std::vector<named_text> explicit_equations;
    std::vector<std::string> derivatives;
    std::vector<double> start;
    double x2 = 0.0;
};

/// An integration; its values are the end. Its run throws where the method gives up.
struct integration : yardstick
{
    /// Of the right sides in the last run, those for Jacobians included.
    std::shared_ptr<std::int64_t> evaluations;
};

/// One evaluation of the right sides at the start.
yardstick parsed_derivatives(const initial_values& problem, double x);
/// The Runge-Kutta-Fehlberg method of GSL.
integration parsed_rkf45(const initial_values& problem, double relative, double absolute);
/// The method of highest order of GSL, as exact as it gets.
integration parsed_reference(const initial_values& problem);
/// Backward differentiation by CVODE with dense Jacobians by differences.
integration parsed_bdf(const initial_values& problem, double relative, double absolute);

/// A minimization as it is typed.
struct typed_target
{
    std::string expression;
    std::vector<std::string> variables;
    std::vector<double> start;
};
/// Methods of gsl_multimin.
enum class gsl_minimizer
{
    conjugate_fr,
    vector_bfgs2
};
/// The point where the gradient, by central differences, is shorter than `tolerance`; the target compiled before.
yardstick minimize_by_gsl(const typed_target& source, gsl_minimizer method, double tolerance);

} // namespace kelvarin::bench
