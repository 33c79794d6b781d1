// SPDX-License-Identifier: MIT
#include "reg/polynomial_text.h"

#include "numeric/arithmetic_check.h"
#include "platform/format_mask.h"
#include "platform/text_file.h"
#include "shell/general_lib.h"

#include <cmath>
#include <cstddef>

namespace kelvarin
{

namespace
{

std::string power_text(std::string_view x, int power)
{
    if (power == 0) return "";
    std::string text = "*" + std::string(x);
    if (power > 1) text += "^" + std::to_string(power);
    return text;
}

/// Terms one behind the other; a negative one brings its own sign.
std::string joined(std::span<const polynomial_term> terms, std::string_view x, std::string_view plus,
                   std::string_view before_minus)
{
    std::string text;
    for (const polynomial_term& term : terms) {
        if (!text.empty()) text += term.coefficient < 0.0 ? before_minus : plus;
        text += formula_number(term.coefficient) + power_text(x, term.power);
    }
    return text;
}

} // namespace

std::string formula_number(double value)
{
    return std::string(trimmed(format_number(value)));
}

std::vector<polynomial_term> polynomial_terms(std::span<const double> coef, bool constant_term)
{
    std::vector<polynomial_term> terms;
    int power = constant_term ? 0 : 1;
    for (const double coefficient : coef)
        terms.push_back({coefficient, power++});
    return terms;
}

std::vector<polynomial_term> integrated(std::span<const polynomial_term> terms)
{
    std::vector<polynomial_term> result;
    for (const polynomial_term& term : terms)
        result.push_back({term.coefficient / (term.power + 1), term.power + 1});
    return result;
}

std::vector<polynomial_term> differentiated(std::span<const polynomial_term> terms)
{
    std::vector<polynomial_term> result;
    for (const polynomial_term& term : terms)
        if (term.power > 0) result.push_back({term.power * term.coefficient, term.power - 1});
    return result;
}

double value_of(std::span<const polynomial_term> terms, double x)
{
    double sum = 0.0;
    for (const polynomial_term& term : terms)
        sum += term.coefficient * std::pow(x, term.power);
    return finite(sum);
}

std::string polynomial_text(std::span<const polynomial_term> terms, std::string_view x)
{
    return joined(terms, x, " + ", " ");
}

std::string polynomial_formula(std::span<const polynomial_term> terms, std::string_view x)
{
    return joined(terms, x, "+", "");
}

std::string polynomial_curve(std::span<const polynomial_term> terms)
{
    std::string text;
    for (const polynomial_term& term : terms) {
        if (term.power == 0) {
            text = format_masked(term.coefficient, "0.000E-00");
            continue;
        }
        if (!text.empty()) text += term.coefficient < 0.0 ? " " : " + ";
        text += format_masked(term.coefficient, "0.0000000000E-0") + power_text("x", term.power);
    }
    return text;
}

std::string linear_formula(std::span<const double> coef, std::span<const std::string> names)
{
    std::string text;
    const std::size_t first = coef.size() - names.size();
    for (std::size_t j = 0; j < coef.size(); ++j) {
        if (!text.empty() && !(coef[j] < 0.0)) text += "+";
        text += formula_number(coef[j]);
        if (j >= first) text += "*" + names[j - first];
    }
    return text;
}

} // namespace kelvarin
