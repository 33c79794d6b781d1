// SPDX-License-Identifier: MIT
#pragma once

#include "platform/run_time_numbers.h"
#include "platform/runtime_failure.h"

#include <cmath>
#include <concepts>
#include <limits>

/// The functions of the language as formulas over a number type. With `double` a formula gives its value
/// or something that is not finite; with `checked_real` it also records which run-time failure came first.
/// The formulas are meant literally, cancellation and the short value of a right angle included.
namespace kelvarin
{

/// A double that remembers the first failure of the arithmetic that made it.
struct checked_real
{
    double value = 0.0;
    int failure = 0;

    checked_real() = default;
    checked_real(double v) : value(v) {} // a finite number, as the formulas write their constants
    checked_real(double v, int number) : value(v), failure(number) {}
};

namespace formula
{

/// The result of arithmetic on `a` and `b`: an earlier failure stays, an infinity is an overflow.
inline checked_real settled(double value, const checked_real& a, const checked_real& b = {})
{
    if (a.failure != 0) return {0.0, a.failure};
    if (b.failure != 0) return {0.0, b.failure};
    if (!std::isfinite(value)) return {0.0, failure_number::overflow};
    return value;
}

inline checked_real operator+(const checked_real& a, const checked_real& b)
{
    return settled(a.value + b.value, a, b);
}
inline checked_real operator-(const checked_real& a, const checked_real& b)
{
    return settled(a.value - b.value, a, b);
}
inline checked_real operator-(const checked_real& a)
{
    return {-a.value, a.failure};
}
inline checked_real operator*(const checked_real& a, const checked_real& b)
{
    return settled(a.value * b.value, a, b);
}
inline checked_real operator/(const checked_real& a, const checked_real& b)
{
    if (a.failure == 0 && b.failure == 0 && b.value == 0.0) return {0.0, failure_number::division_by_zero};
    return settled(b.value == 0.0 ? 0.0 : a.value / b.value, a, b);
}

// The elementary functions, in both number types.

inline double root(double x)
{
    return std::sqrt(x);
}
inline checked_real root(const checked_real& x)
{
    if (x.failure == 0 && x.value < 0.0) return {0.0, failure_number::invalid_argument};
    return settled(std::sqrt(std::fabs(x.value)), x);
}
inline double natural_log(double x)
{
    return std::log(x);
}
inline checked_real natural_log(const checked_real& x)
{
    if (x.failure == 0 && x.value <= 0.0) return {0.0, failure_number::invalid_argument};
    return settled(x.value <= 0.0 ? 0.0 : std::log(x.value), x);
}
inline double raised(double base, double exponent)
{
    return std::pow(base, exponent);
}
inline checked_real raised(const checked_real& base, const checked_real& exponent)
{
    if (base.failure == 0 && base.value < 0.0) return {0.0, failure_number::invalid_argument};
    return settled(std::pow(base.value, exponent.value), base, exponent);
}

/// Applies a function that is finite for every finite argument, or overflows.
template <double (*Function)(double)> double applied(double x)
{
    return Function(x);
}
template <double (*Function)(double)> checked_real applied(const checked_real& x)
{
    return settled(Function(x.value), x);
}

inline double sign_of(double x)
{
    return x > 0.0 ? 1.0 : x < 0.0 ? -1.0 : 0.0;
}
inline double plain_sin(double x)
{
    return std::sin(x);
}
inline double plain_cos(double x)
{
    return std::cos(x);
}
inline double plain_tan(double x)
{
    return std::tan(x);
}
inline double plain_atan(double x)
{
    return std::atan(x);
}
inline double plain_exp(double x)
{
    return std::exp(x);
}
inline double plain_floor(double x)
{
    return std::floor(x);
}
inline double plain_trunc(double x)
{
    return std::trunc(x);
}
inline double plain_fabs(double x)
{
    return std::fabs(x);
}

/// Half a turn over two as the language has it, deliberately short.
inline constexpr double right_angle = 1.5708;

template <class R> R square_root(R x)
{
    return root(x);
}
template <class R> R sine(R x)
{
    return applied<plain_sin>(x);
}
template <class R> R cosine(R x)
{
    return applied<plain_cos>(x);
}
template <class R> R tangent(R x)
{
    return applied<plain_tan>(x);
}
template <class R> R secant(R x)
{
    return R(1.0) / cosine(x);
}
template <class R> R cosecant(R x)
{
    return R(1.0) / sine(x);
}
template <class R> R cotangent(R x)
{
    return R(1.0) / tangent(x);
}
template <class R> R arc_tangent(R x)
{
    return applied<plain_atan>(x);
}
template <class R> R arc_cotangent(R x)
{
    return arc_tangent(x) + R(right_angle);
}
template <class R> R exponential(R x)
{
    return applied<plain_exp>(x);
}
template <class R> R logarithm(R x)
{
    return natural_log(x);
}
template <class R> R decimal_logarithm(R x)
{
    return natural_log(x) / R(std::log(10.0));
}
template <class R> R absolute(R x)
{
    return applied<plain_fabs>(x);
}
template <class R> R truncation(R x)
{
    return applied<plain_trunc>(x);
}
template <class R> R whole_below(R x)
{
    return applied<plain_floor>(x);
}
template <class R> R signum(R x)
{
    return applied<sign_of>(x);
}
template <class R> R rounded(R x)
{
    return applied<round_half_even>(x);
}
template <class R> R nothing(R)
{
    return R(0.0);
}
template <class R> R hyperbolic_sine(R x)
{
    return (exponential(x) - exponential(-x)) / R(2.0);
}
template <class R> R hyperbolic_cosine(R x)
{
    return (exponential(x) + exponential(-x)) / R(2.0);
}
template <class R> R hyperbolic_tangent(R x)
{
    return (exponential(x) - exponential(-x)) / (exponential(x) + exponential(-x));
}
template <class R> R hyperbolic_cotangent(R x)
{
    return (exponential(x) + exponential(-x)) / (exponential(x) - exponential(-x));
}
template <class R> R area_sine(R x)
{
    return natural_log(root(x * x + R(1.0)) + x);
}
template <class R> R area_cosine(R x)
{
    return natural_log(root(x * x - R(1.0)) + x);
}
template <class R> R area_tangent(R x)
{
    return natural_log((R(1.0) + x) / (R(1.0) - x)) / R(2.0);
}
template <class R> R area_secant(R x)
{
    return natural_log((root(R(1.0) - x * x) + R(1.0)) / x);
}
template <class R> R area_cosecant(R x)
{
    return natural_log((signum(x) * root(x * x + R(1.0)) + R(1.0)) / x);
}
template <class R> R area_cotangent(R x)
{
    return natural_log((x + R(1.0)) / (x - R(1.0))) / R(2.0);
}
template <class R> R power_of_two(R x)
{
    return raised(R(2.0), x);
}
template <class R> R power_of_ten(R x)
{
    return raised(R(10.0), x);
}
template <class R> R fraction(R x)
{
    return x - whole_below(x);
}
template <class R> R cube_root(R x)
{
    return raised(x, R(1.0 / 3.0));
}

// Formulas in which an infinity could vanish again: they exist for checked numbers only.

inline checked_real arc_sine(checked_real x)
{
    return arc_tangent(x / root(1.0 - x * x));
}
inline checked_real arc_cosine(checked_real x)
{
    return arc_tangent(-x / root(1.0 - x * x)) + right_angle;
}
inline checked_real arc_secant(checked_real x)
{
    return arc_tangent(x / root(x * x - 1.0)) + signum(signum(x) - 1.0) * right_angle;
}
inline checked_real arc_cosecant(checked_real x)
{
    return arc_tangent(x / root(x * x - 1.0)) + (signum(x) - 1.0) * right_angle;
}
inline checked_real hyperbolic_secant(checked_real x)
{
    return 2.0 / (exponential(x) + exponential(-x));
}
inline checked_real hyperbolic_cosecant(checked_real x)
{
    return 2.0 / (exponential(x) - exponential(-x));
}

/// The value of a careful formula as a plain number: not-a-number where it fails.
template <checked_real (*Checked)(checked_real)> double careful(double x)
{
    const checked_real result = Checked(checked_real(x));
    return result.failure == 0 ? result.value : std::numeric_limits<double>::quiet_NaN();
}

} // namespace formula

} // namespace kelvarin
