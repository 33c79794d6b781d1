// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <span>
#include <string_view>

namespace kelvarin
{

/// What a node of a compiled expression computes. One code per spelling: `=>` and `>=` compute the same
/// and print as typed.
enum class operation_code : std::uint8_t
{
    none,
    // Binary operators.
    logical_or,
    logical_and,
    greater,
    less,
    greater_equal,
    equal_greater,
    less_equal,
    equal_less,
    equal,
    unequal,
    greater_less,
    add,
    subtract,
    multiply,
    divide,
    power,
    // The conditional.
    if_then_else,
    // Functions of one argument.
    sqr,
    sqrt,
    sin,
    cos,
    tan,
    sec,
    cosec,
    cotan,
    arcsin,
    arccos,
    arctan,
    arcsec,
    arccosec,
    arccotan,
    exp,
    ln,
    log,
    abs,
    fix,
    int_,
    rand,
    sign,
    srq,
    sinh,
    cosh,
    tanh,
    sech,
    cosech,
    coth,
    arcsinh,
    arccosh,
    arctanh,
    arcsech,
    arccosech,
    arccotanh,
    exp2,
    exp10,
    frac,
    fact,
    cbrt,
    round,
    erf,
    psi
};

inline constexpr int operation_count = static_cast<int>(operation_code::psi) + 1;

/// A value, or the number of the run-time failure that took its place.
struct checked_value
{
    double value = 0.0;
    int failure = 0;
};

/// One row per operation; checker, builder, evaluator, completion, help and tests read it.
struct operation_row
{
    operation_code code = operation_code::none;
    /// As it is typed.
    std::string_view spelling;
    /// Of a binary operator: 1 binds weakest, 6 strongest; else 0.
    int priority = 0;
    /// A function's value: not finite exactly where it fails, also where an infinity inside the formula
    /// would not show in the result. None for operators, the conditional and `rand`.
    double (*value)(double) = nullptr;
    /// The same formula step by step, to find the run-time failure.
    checked_value (*checked)(double) = nullptr;
    /// The sentence that refuses an argument outside the domain in the evaluator's own words; empty where
    /// the run-time failure speaks.
    std::string_view refusal;
    /// One line for help: what it computes.
    std::string_view meaning;
    /// An expression that uses it, for the help page, and its value.
    std::string_view example;
    double example_value = 0.0;
};

/// All rows in the order of the codes, from `none` on.
std::span<const operation_row> operation_rows();
const operation_row& row_of(operation_code code);
/// The binary operator or function of exactly this spelling, or `none`.
operation_code operator_of(std::string_view spelling);
operation_code function_of(std::string_view spelling);

/// L ^ R for arguments that the guards let through. Whole powers 2 and 3 are products.
double power_value(double left, double right);

} // namespace kelvarin
