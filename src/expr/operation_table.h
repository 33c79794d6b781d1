// SPDX-License-Identifier: MIT
#pragma once

#include "expr/formulas.h"
#include "expr/operations.h"
#include "expr/special_functions.h"

#include <array>

/// The table of operations as a constant, for those who need a row at compile time; everybody else asks
/// operation_rows().
namespace kelvarin::operation_table
{

using code = operation_code;

/// A function whose formula shows every failure in its result.
template <double (*Plain)(double), checked_real (*Checked)(checked_real)>
constexpr operation_row function_row(code operation, std::string_view spelling, std::string_view meaning,
                                     std::string_view example, double example_value, std::string_view refusal = {})
{
    return {.code = operation,
            .spelling = spelling,
            .value = Plain,
            .checked =
                [](double x) {
                    const checked_real result = Checked(checked_real(x));
                    return checked_value{result.value, result.failure};
                },
            .refusal = refusal,
            .meaning = meaning,
            .example = example,
            .example_value = example_value};
}

/// A function whose formula may hide an infinity: its value is that of the careful formula.
template <checked_real (*Checked)(checked_real)>
constexpr operation_row careful_row(code operation, std::string_view spelling, std::string_view meaning,
                                    std::string_view example, double example_value)
{
    return function_row<formula::careful<Checked>, Checked>(operation, spelling, meaning, example, example_value);
}

constexpr operation_row operator_row(code operation, std::string_view spelling, int priority, std::string_view meaning,
                                     std::string_view example, double example_value)
{
    return {.code = operation,
            .spelling = spelling,
            .priority = priority,
            .refusal = {},
            .meaning = meaning,
            .example = example,
            .example_value = example_value};
}

using real = double;
using care = checked_real;
namespace f = formula;

inline constexpr std::array<operation_row, operation_count> rows = {
    operation_row{},
    operator_row(code::logical_or, "or", 1, "1 unless both sides are 0", "0 or 5", 1),
    operator_row(code::logical_and, "and", 2, "1 if neither side is 0", "2 and 0", 0),
    operator_row(code::greater, ">", 3, "1 if greater, else 0", "2 > 1", 1),
    operator_row(code::less, "<", 3, "1 if less, else 0", "2 < 1", 0),
    operator_row(code::greater_equal, ">=", 3, "1 if not less, else 0", "2 >= 2", 1),
    operator_row(code::equal_greater, "=>", 3, "1 if not less, else 0", "2 => 3", 0),
    operator_row(code::less_equal, "<=", 3, "1 if not greater, else 0", "2 <= 2", 1),
    operator_row(code::equal_less, "=<", 3, "1 if not greater, else 0", "3 =< 2", 0),
    operator_row(code::equal, "==", 3, "1 if equal, else 0", "2 == 2", 1),
    operator_row(code::unequal, "<>", 3, "1 if not equal, else 0", "2 <> 2", 0),
    operator_row(code::greater_less, "><", 3, "1 if not equal, else 0", "2 >< 3", 1),
    operator_row(code::add, "+", 4, "sum", "2 + 3", 5),
    operator_row(code::subtract, "-", 4, "difference, or the opposite of what follows", "-2 - 3", -5),
    operator_row(code::multiply, "*", 5, "product", "2 * 3", 6),
    operator_row(code::divide, "/", 5, "quotient", "12 / 3 / 2", 2),
    operator_row(code::power, "^", 6, "power; several from the left", "2 ^ 3 ^ 2", 64),
    operation_row{.code = code::if_then_else,
                  .spelling = "if",
                  .refusal = {},
                  .meaning = "one of two values: if condition then a else b",
                  .example = "if 2 > 1 then 10 else 20",
                  .example_value = 10},
    function_row<f::square_root<real>, f::square_root<care>>(code::sqr, "sqr", "square root", "sqr(9)", 3,
                                                             "sqr() of negative number not allowed."),
    function_row<f::square_root<real>, f::square_root<care>>(code::sqrt, "sqrt", "square root", "sqrt(16)", 4,
                                                             "sqrt() of negative number not allowed."),
    function_row<f::sine<real>, f::sine<care>>(code::sin, "sin", "sine, radians", "sin(0)", 0),
    function_row<f::cosine<real>, f::cosine<care>>(code::cos, "cos", "cosine, radians", "cos(0)", 1),
    function_row<f::tangent<real>, f::tangent<care>>(code::tan, "tan", "tangent, radians", "tan(0)", 0),
    function_row<f::secant<real>, f::secant<care>>(code::sec, "sec", "secant, radians", "sec(0)", 1),
    function_row<f::cosecant<real>, f::cosecant<care>>(code::cosec, "cosec", "cosecant, radians", "cosec(1)",
                                                       1.18839510577812),
    function_row<f::cotangent<real>, f::cotangent<care>>(code::cotan, "cotan", "cotangent, radians", "cotan(1)",
                                                         0.642092615934331),
    careful_row<f::arc_sine>(code::arcsin, "arcsin", "inverse sine", "arcsin(0.5)", 0.523598775598299),
    careful_row<f::arc_cosine>(code::arccos, "arccos", "inverse cosine, with 1.5708 for a right angle", "arccos(0)",
                               1.5708),
    function_row<f::arc_tangent<real>, f::arc_tangent<care>>(code::arctan, "arctan", "inverse tangent", "arctan(0)", 0),
    careful_row<f::arc_secant>(code::arcsec, "arcsec", "atn(x / sqrt(x*x - 1)), less 1.5708 for negative x",
                               "arcsec(2)", 0.857071947850131),
    careful_row<f::arc_cosecant>(code::arccosec, "arccosec", "atn(x / sqrt(x*x - 1)), less 3.1416 for negative x",
                                 "arccosec(2)", 0.857071947850131),
    function_row<f::arc_cotangent<real>, f::arc_cotangent<care>>(code::arccotan, "arccotan", "atn(x) + 1.5708",
                                                                 "arccotan(0)", 1.5708),
    function_row<f::exponential<real>, f::exponential<care>>(code::exp, "exp", "e to the power x", "exp(0)", 1),
    function_row<f::logarithm<real>, f::logarithm<care>>(code::ln, "ln", "natural logarithm", "ln(1)", 0,
                                                         "ln() of negative number not allowed."),
    function_row<f::decimal_logarithm<real>, f::decimal_logarithm<care>>(
        code::log, "log", "decimal logarithm", "log(100)", 2, "log() of negative number not allowed."),
    function_row<f::absolute<real>, f::absolute<care>>(code::abs, "abs", "absolute value", "abs(-3)", 3),
    function_row<f::truncation<real>, f::truncation<care>>(code::fix, "fix", "whole part, toward zero", "fix(-2.7)",
                                                           -2),
    function_row<f::whole_below<real>, f::whole_below<care>>(code::int_, "int", "largest whole number not above x",
                                                             "int(-2.2)", -3),
    operation_row{.code = code::rand,
                  .spelling = "rand",
                  .refusal = {},
                  .meaning = "random number from 0 to 1: x > 0 the next, 0 the last again, x < 0 restarts from x",
                  .example = "int(rand(1))",
                  .example_value = 0},
    function_row<f::signum<real>, f::signum<care>>(code::sign, "sign", "-1, 0 or 1", "sign(-3)", -1),
    function_row<f::nothing<real>, f::nothing<care>>(code::srq, "srq", "without a meaning: always 0", "srq(4)", 0),
    function_row<f::hyperbolic_sine<real>, f::hyperbolic_sine<care>>(code::sinh, "sinh", "hyperbolic sine", "sinh(1)",
                                                                     1.1752011936438),
    function_row<f::hyperbolic_cosine<real>, f::hyperbolic_cosine<care>>(code::cosh, "cosh", "hyperbolic cosine",
                                                                         "cosh(1)", 1.54308063481524),
    function_row<f::hyperbolic_tangent<real>, f::hyperbolic_tangent<care>>(code::tanh, "tanh", "hyperbolic tangent",
                                                                           "tanh(1)", 0.761594155955765),
    careful_row<f::hyperbolic_secant>(code::sech, "sech", "hyperbolic secant", "sech(0)", 1),
    careful_row<f::hyperbolic_cosecant>(code::cosech, "cosech", "hyperbolic cosecant", "cosech(1)", 0.850918128239321),
    function_row<f::hyperbolic_cotangent<real>, f::hyperbolic_cotangent<care>>(
        code::coth, "coth", "hyperbolic cotangent", "coth(1)", 1.31303528549933),
    function_row<f::area_sine<real>, f::area_sine<care>>(code::arcsinh, "arcsinh", "inverse hyperbolic sine",
                                                         "arcsinh(1)", 0.881373587019543),
    function_row<f::area_cosine<real>, f::area_cosine<care>>(code::arccosh, "arccosh", "inverse hyperbolic cosine",
                                                             "arccosh(2)", 1.31695789692482),
    function_row<f::area_tangent<real>, f::area_tangent<care>>(code::arctanh, "arctanh", "inverse hyperbolic tangent",
                                                               "arctanh(0.5)", 0.549306144334055),
    function_row<f::area_secant<real>, f::area_secant<care>>(code::arcsech, "arcsech", "inverse hyperbolic secant",
                                                             "arcsech(0.5)", 1.31695789692482),
    function_row<f::area_cosecant<real>, f::area_cosecant<care>>(
        code::arccosech, "arccosech", "inverse hyperbolic cosecant", "arccosech(1)", 0.881373587019543),
    function_row<f::area_cotangent<real>, f::area_cotangent<care>>(
        code::arccotanh, "arccotanh", "inverse hyperbolic cotangent", "arccotanh(2)", 0.549306144334055),
    function_row<f::power_of_two<real>, f::power_of_two<care>>(code::exp2, "exp2", "2 to the power x", "exp2(3)", 8),
    function_row<f::power_of_ten<real>, f::power_of_ten<care>>(code::exp10, "exp10", "10 to the power x", "exp10(2)",
                                                               100),
    function_row<f::fraction<real>, f::fraction<care>>(code::frac, "frac", "x less the whole number below it",
                                                       "frac(-1.5)", 0.5),
    careful_row<f::factorial>(code::fact, "fact", "factorial of x rounded to a whole number", "fact(5)", 120),
    function_row<f::cube_root<real>, f::cube_root<care>>(code::cbrt, "cbrt", "x to the power 1/3, x not negative",
                                                         "cbrt(27)", 3),
    function_row<f::rounded<real>, f::rounded<care>>(code::round, "round", "nearest whole number, halves to even",
                                                     "round(2.5)", 2),
    careful_row<f::error_function>(code::erf, "erf", "error function", "erf(1)", 0.842700792949715),
    careful_row<f::digamma>(code::psi, "psi", "digamma function", "psi(1)", -0.577215664901533),
};

} // namespace kelvarin::operation_table
