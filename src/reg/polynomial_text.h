// SPDX-License-Identifier: MIT
#pragma once

#include <span>
#include <string>
#include <string_view>
#include <vector>

/// Polynomials as text, for reports, columns and graphs.
namespace kelvarin
{

struct polynomial_term
{
    double coefficient = 0.0;
    int power = 0;
};

/// The terms of a fit by rising power, from power 0 on with a constant term, else from 1 on.
std::vector<polynomial_term> polynomial_terms(std::span<const double> coef, bool constant_term);

std::vector<polynomial_term> integrated(std::span<const polynomial_term> terms);
/// Without the constant term, which vanishes.
std::vector<polynomial_term> differentiated(std::span<const polynomial_term> terms);
/// The sum of the terms at x. Throws runtime_failure 6 if it is not finite.
double value_of(std::span<const polynomial_term> terms, double x);

/// "1 + 2*x -0.5*x^2", as reports show it.
std::string polynomial_text(std::span<const polynomial_term> terms, std::string_view x);
/// "1+2*x-0.5*x^2", as the formula of a column.
std::string polynomial_formula(std::span<const polynomial_term> terms, std::string_view x);
/// The curve of a graph, in x: the constant has 4 digits, the others 11.
std::string polynomial_curve(std::span<const polynomial_term> terms);

/// The constant and "coefficient*name" of each variable, as the formula of a column. `coef` has one more element than
/// `names` if there is a constant term.
std::string linear_formula(std::span<const double> coef, std::span<const std::string> names);

/// A number of a formula: that of reports without blanks around it.
std::string formula_number(double value);

} // namespace kelvarin
