// SPDX-License-Identifier: MIT
#pragma once

#include <rapidcheck.h>

#include <array>
#include <cmath>
#include <cstdio>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

/// Random expressions with a meaning of their own: printed as a person would type them, with no more
/// parentheses than needed, and evaluated directly, without the engine.
namespace kelvarin::test
{

inline constexpr std::array<std::string_view, 4> variable_names = {"a", "b", "x1", "Long_name"};
using variable_values = std::array<double, variable_names.size()>;

struct random_expression
{
    std::string text;
    /// Priority of the outermost operator; 7 for what needs no parentheses.
    int priority = 7;
    /// Whether the text begins with a minus.
    bool leading_minus = false;
    double value = 0.0;
};

inline std::string in_parentheses(const random_expression& part, bool needed)
{
    return needed ? "(" + part.text + ")" : part.text;
}

inline random_expression joined(const random_expression& left, std::string_view op, int priority,
                                const random_expression& right, double value)
{
    // Operators bind from the left; a leading minus binds like a subtraction.
    const std::string l = in_parentheses(left, left.priority < priority || (left.leading_minus && priority > 4));
    const std::string r = in_parentheses(right, right.priority <= priority || right.leading_minus);
    return {l + " " + std::string(op) + " " + r, priority, l.front() == '-', value};
}

inline random_expression negated(const random_expression& part)
{
    return {"-" + in_parentheses(part, part.priority <= 4 || part.leading_minus), 4, true, 0.0 - part.value};
}

inline random_expression called(std::string_view name, const random_expression& part, double value)
{
    return {std::string(name) + "(" + part.text + ")", 7, false, value};
}

class expression_maker
{
public:
    /// `values` are those of variable_names; `wild` adds operations and constants that overflow or fail.
    expression_maker(variable_values values, bool wild) : values_(values), wild_(wild) {}

    random_expression make(int depth)
    {
        if (depth <= 0) return leaf();
        switch (pick(wild_ ? 16 : 13)) {
        case 0:
            return leaf();
        case 1:
            return negated(make(depth - 1));
        case 2:
            return binary("+", 4, depth, [](double l, double r) { return l + r; });
        case 3:
            return binary("-", 4, depth, [](double l, double r) { return l - r; });
        case 4:
            return binary("*", 5, depth, [](double l, double r) { return l * r; });
        case 5:
            return binary("/", 5, depth, [](double l, double r) { return l / r; });
        case 6:
            return power(depth);
        case 7:
            return binary("<", 3, depth, [](double l, double r) { return l < r ? 1.0 : 0.0; });
        case 8:
            return binary(">=", 3, depth, [](double l, double r) { return l < r ? 0.0 : 1.0; });
        case 9:
            return binary("or", 1, depth, [](double l, double r) { return l != 0.0 || r != 0.0 ? 1.0 : 0.0; });
        case 10:
            return binary("and", 2, depth, [](double l, double r) { return l != 0.0 && r != 0.0 ? 1.0 : 0.0; });
        case 11:
            return conditional(depth);
        case 12:
            return function(depth);
        case 13:
            return binary("^", 6, depth, [](double l, double r) { return std::pow(l, r); });
        case 14:
            return wild_function(depth);
        default:
            return binary("==", 3, depth, [](double l, double r) { return l == r ? 1.0 : 0.0; });
        }
    }

private:
    int pick(int count) { return *rc::gen::inRange(0, count); }

    random_expression leaf()
    {
        if (pick(2) == 0) {
            const auto which = static_cast<std::size_t>(pick(static_cast<int>(variable_names.size())));
            return {std::string(variable_names[which]), 7, false, values_[which]};
        }
        if (wild_ && pick(4) == 0) {
            static constexpr std::array<std::pair<const char*, double>, 6> odd = {
                {{"0", 0.0}, {"1e300", 1e300}, {"1E-300", 1e-300}, {"1e-400", 0.0}, {"700", 700.0}, {"2e5", 2e5}}};
            const auto& [text, value] = odd[static_cast<std::size_t>(pick(static_cast<int>(odd.size())))];
            return {text, 7, false, value};
        }
        const double value = pick(4000) / 128.0;
        std::array<char, 32> text{};
        std::snprintf(text.data(), text.size(), "%.10g", value);
        return {text.data(), 7, false, value};
    }

    template <class Compute> random_expression binary(std::string_view op, int priority, int depth, Compute compute)
    {
        const random_expression left = make(depth - 1);
        const random_expression right = make(depth - 1);
        return joined(left, op, priority, right, compute(left.value, right.value));
    }

    random_expression power(int depth)
    {
        const random_expression base = make(depth - 1);
        const int exponent = pick(5);
        const random_expression right = {std::to_string(exponent), 7, false, static_cast<double>(exponent)};
        const double square = base.value * base.value;
        const double value = exponent == 2   ? square
                             : exponent == 3 ? square * base.value
                                             : std::pow(base.value, right.value);
        return joined(base, "^", 6, right, value);
    }

    random_expression conditional(int depth)
    {
        random_expression condition = make(depth - 1);
        if (condition.text.find("if ") != std::string::npos) condition = leaf(); // an if may not stand there
        const random_expression yes = make(depth - 1);
        const random_expression no = make(depth - 1);
        return {"(if " + condition.text + " then " + in_parentheses(yes, yes.text.find("if ") == 0) + " else " +
                    no.text + ")",
                7, false, condition.value != 0.0 ? yes.value : no.value};
    }

    random_expression function(int depth)
    {
        const random_expression part = make(depth - 1);
        switch (pick(6)) {
        case 0:
            return called("sin", part, std::sin(part.value));
        case 1:
            return called("exp", part, std::exp(part.value));
        case 2:
            return called("ln", part, std::log(part.value));
        case 3:
            return called("sqrt", part, std::sqrt(part.value));
        case 4:
            return called("abs", part, std::fabs(part.value));
        default:
            return called("int", part, std::floor(part.value));
        }
    }

    /// A function of unspecified value: for comparisons of two evaluations of the engine.
    random_expression wild_function(int depth)
    {
        static constexpr std::array<std::string_view, 16> names = {
            "sech",   "cosech",  "arcsin", "arccos", "tanh", "fact", "psi",  "erf",
            "arcsec", "arctanh", "cbrt",   "round",  "coth", "log",  "sign", "arctan"};
        return called(names[static_cast<std::size_t>(pick(static_cast<int>(names.size())))], make(depth - 1), 0.0);
    }

    variable_values values_;
    bool wild_;
};

/// Ordinary values, and with `wild` extreme ones too.
inline variable_values random_values(bool wild)
{
    variable_values values{};
    for (double& value : values) {
        value = *rc::gen::inRange(-4000, 4000) / 128.0;
        if (!wild || *rc::gen::inRange(0, 3) != 0) continue;
        static constexpr std::array<double, 8> extremes = {0.0, -0.0, 1e300, -1e300, 1e-300, 5e-324, 1.0, -1.0};
        value = extremes[static_cast<std::size_t>(*rc::gen::inRange(0, static_cast<int>(extremes.size())))];
    }
    return values;
}

} // namespace kelvarin::test
