// SPDX-License-Identifier: MIT
#include "expr/special_functions.h"

#include <array>

namespace kelvarin::formula
{

namespace
{

constexpr double pi_15_digits = 3.14159265358979;
constexpr double euler_constant = 0.577215664901533;
/// 2 ln 2
constexpr double twice_ln_2 = 1.38629436111989;
/// The value given to the poles of the digamma function.
constexpr double at_a_pole = 1e300;
/// From here on the asymptotic series serves whole and half arguments too: it agrees with the sums to
/// their own rounding, and they would take minutes.
constexpr double longest_sum = 1e7;

constexpr std::array<double, 8> digamma_series = {-0.08333333333333,   0.00833333333333333,  -0.00396825396825397,
                                                  0.00416666666666667, -0.00757575757575758, 0.0210927960927961,
                                                  -0.0833333333333333, 0.443259803921569};

bool is_whole(double x)
{
    return std::floor(x) == x;
}

double harmonic_sum(double last)
{
    double sum = 0.0;
    for (double k = 1.0; k <= last; k += 1.0)
        sum += 1.0 / k;
    return sum;
}

double odd_harmonic_sum(double count)
{
    double sum = 0.0;
    for (double k = 1.0; k <= count; k += 1.0)
        sum += 1.0 / (2.0 * k - 1.0);
    return sum;
}

checked_real digamma_asymptotic(double a)
{
    checked_real shift = 0.0;
    if (a < 10.0) {
        const int steps = 10 - static_cast<int>(std::floor(a));
        for (int k = 0; k < steps; ++k)
            shift = shift + 1.0 / checked_real(a + k);
        a += steps;
    }
    const checked_real y = 1.0 / (checked_real(a) * a);
    checked_real series = digamma_series.back();
    for (std::size_t i = digamma_series.size() - 1; i-- > 0;)
        series = series * y + digamma_series[i];
    return natural_log(checked_real(a)) - 0.5 / checked_real(a) + y * series - shift;
}

checked_real digamma_of_magnitude(double a)
{
    if (a <= longest_sum) {
        if (is_whole(a)) return harmonic_sum(a - 1.0) - euler_constant;
        if (is_whole(a + 0.5)) return 2.0 * odd_harmonic_sum(a - 0.5) - euler_constant - twice_ln_2;
    }
    return digamma_asymptotic(a);
}

} // namespace

checked_real factorial(checked_real x)
{
    try {
        const int n = to_int16(x.value);
        checked_real product = 1.0;
        for (int k = 1; k <= n && product.failure == 0; ++k)
            product = product * static_cast<double>(k);
        return product;
    } catch (const runtime_failure& failure) {
        return {0.0, failure.number()};
    }
}

checked_real error_function(checked_real x)
{
    constexpr double tolerance = 1e-11;
    const checked_real square = x * x;
    if (square.failure != 0) return square;
    const double z = square.value;
    const double magnitude = std::fabs(x.value);
    double term = 1.0;
    double sum = 1.0;
    if (magnitude < 3.5) {
        for (int k = 1; k <= 50; ++k) {
            term = term * z / (k + 0.5);
            sum += term;
            if (std::fabs(term) <= std::fabs(sum) * tolerance) break;
        }
        return 2.0 / std::sqrt(pi_15_digits) * x.value * std::exp(-z) * sum;
    }
    for (int k = 1; k <= 12; ++k) {
        term = -term * (k - 0.5) / z;
        sum += term;
    }
    const double value = 1.0 - std::exp(-z) / (magnitude * std::sqrt(pi_15_digits)) * sum;
    return x.value < 0.0 ? -value : value;
}

checked_real digamma(checked_real x)
{
    if (x.value <= 0.0 && is_whole(x.value)) return at_a_pole;
    const checked_real result = digamma_of_magnitude(std::fabs(x.value));
    if (x.value > 0.0) return result;
    const checked_real angle = pi_15_digits * x;
    return result - pi_15_digits * cosine(angle) / sine(angle) - 1.0 / x;
}

} // namespace kelvarin::formula
