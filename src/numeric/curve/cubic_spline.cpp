// SPDX-License-Identifier: MIT
#include "numeric/curve/cubic_spline.h"

#include "numeric/arithmetic_check.h"
#include "numeric/curve/interval_search.h"

#include <algorithm>
#include <cassert>
#include <cstddef>

namespace kelvarin
{

namespace
{

/// The cubic of one interval, and where a point stands in it.
struct spline_interval
{
    double width = 0.0;
    double y_left = 0.0, y_right = 0.0;
    /// The second derivatives at both ends.
    double y2_left = 0.0, y2_right = 0.0;

    /// Eq. 3.3.3; `part` is the distance from the left end over the width.
    double value(double part) const
    {
        const double a = 1.0 - part;
        const double b = part;
        return a * y_left + b * y_right +
               ((a * a * a - a) * y2_left + (b * b * b - b) * y2_right) * (width * width) / 6.0;
    }

    /// Eq. 3.3.5.
    double derivative(double part) const
    {
        const double a = 1.0 - part;
        return (y_right - y_left) / width - (3.0 * a * a - 1.0) / 6.0 * width * y2_left +
               (3.0 * part * part - 1.0) / 6.0 * width * y2_right;
    }

    /// The integral from the left end to a point: eq. 3.3.3 integrated term by term.
    double integral_to(double part) const
    {
        const double a2 = (1.0 - part) * (1.0 - part);
        const double b2 = part * part;
        const double of_line = y_left * (1.0 - a2) / 2.0 + y_right * b2 / 2.0;
        const double of_left = (1.0 - a2 * a2) / 4.0 - (1.0 - a2) / 2.0;
        const double of_right = b2 * b2 / 4.0 - b2 / 2.0;
        return width * (of_line + (of_left * y2_left + of_right * y2_right) * (width * width) / 6.0);
    }
};

spline_interval interval_at(std::span<const double> x, std::span<const double> y, std::span<const double> y2,
                            std::size_t i)
{
    const double width = x[i + 1] - x[i];
    if (width == 0.0) nrerror("Bad xa input to routine splint");
    return {width, y[i], y[i + 1], y2[i], y2[i + 1]};
}

/// The integral from the first node to `at`.
double integral_from_start(std::span<const double> x, std::span<const double> y, std::span<const double> y2, double at)
{
    const std::size_t last = interval_of(x, at);
    double sum = 0.0;
    for (std::size_t i = 0; i < last; ++i)
        sum += interval_at(x, y, y2, i).integral_to(1.0);
    const spline_interval part = interval_at(x, y, y2, last);
    return finite(sum + part.integral_to((at - x[last]) / part.width));
}

} // namespace

std::vector<double> spline(std::span<const double> x, std::span<const double> y)
{
    assert(x.size() == y.size() && x.size() >= 2);
    const std::size_t n = x.size();
    // The sweep of the tridiagonal system 3.3.7: y2[i] = y2[i] * y2[i + 1] + right[i] once it is done.
    std::vector<double> y2(n, 0.0);
    std::vector<double> right(n, 0.0);
    for (std::size_t i = 1; i + 1 < n; ++i) {
        const double share = quotient(x[i] - x[i - 1], x[i + 1] - x[i - 1]);
        const double pivot = share * y2[i - 1] + 2.0;
        y2[i] = quotient(share - 1.0, pivot);
        const double turn = quotient(y[i + 1] - y[i], x[i + 1] - x[i]) - quotient(y[i] - y[i - 1], x[i] - x[i - 1]);
        right[i] = quotient(quotient(6.0 * turn, x[i + 1] - x[i - 1]) - share * right[i - 1], pivot);
    }
    y2[n - 1] = 0.0;
    for (std::size_t i = n - 1; i-- > 0;)
        y2[i] = finite(y2[i] * y2[i + 1] + right[i]);
    return y2;
}

double splint(std::span<const double> x, std::span<const double> y, std::span<const double> y2, double at)
{
    const std::size_t i = interval_of(x, at);
    const spline_interval interval = interval_at(x, y, y2, i);
    return finite(interval.value((at - x[i]) / interval.width));
}

double spline_value(std::span<const double> x, std::span<const double> y, double at)
{
    return splint(x, y, spline(x, y), at);
}

double spline_derivative(std::span<const double> x, std::span<const double> y, std::span<const double> y2, double at)
{
    const std::size_t i = interval_of(x, at);
    const spline_interval interval = interval_at(x, y, y2, i);
    return finite(interval.derivative((at - x[i]) / interval.width));
}

double spline_integral(std::span<const double> x, std::span<const double> y, std::span<const double> y2, double a,
                       double b)
{
    return integral_from_start(x, y, y2, b) - integral_from_start(x, y, y2, a);
}

} // namespace kelvarin
