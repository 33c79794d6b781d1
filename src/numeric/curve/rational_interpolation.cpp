// SPDX-License-Identifier: MIT
#include "numeric/curve/rational_interpolation.h"

#include "numeric/arithmetic_check.h"
#include "numeric/curve/nearest_node.h"

#include <cassert>
#include <cstddef>
#include <vector>

namespace kelvarin
{

interpolated_value ratint(std::span<const double> x, std::span<const double> y, double at, const pause_point& pause)
{
    assert(x.size() == y.size());
    // Keeps the first quotients of a function that is 0 somewhere from being 0 / 0.
    constexpr double tiny = 1e-25;
    const std::size_t n = x.size();
    const std::size_t nearest = nearest_node(x, at);
    if (x[nearest] == at) return {y[nearest], 0.0};

    // Of each tableau column the differences to the upper and the lower left neighbour.
    std::vector<double> upper(y.begin(), y.end());
    std::vector<double> lower(y.begin(), y.end());
    for (double& value : lower)
        value += tiny;

    interpolated_value result{y[nearest], 0.0};
    // The next correction comes from the lower difference of this row, or from the upper one of the row behind it,
    // whichever keeps the path through the tableau nearer to its middle.
    std::ptrdiff_t row = static_cast<std::ptrdiff_t>(nearest) - 1;
    for (std::size_t column = 1; column < n; ++column) {
        if (pause) pause();
        for (std::size_t i = 0; i + column < n; ++i) {
            const double ratio = finite((x[i] - at) * lower[i] / (x[i + column] - at));
            const double divisor = ratio - upper[i + 1];
            if (divisor == 0.0) nrerror("Error in routine ratint");
            const double factor = finite((upper[i + 1] - lower[i]) / divisor);
            lower[i] = finite(upper[i + 1] * factor);
            upper[i] = finite(ratio * factor);
        }
        const std::ptrdiff_t rows_left = static_cast<std::ptrdiff_t>(n - column);
        if (2 * (row + 1) < rows_left)
            result.error = upper[static_cast<std::size_t>(row + 1)];
        else
            result.error = lower[static_cast<std::size_t>(row--)];
        result.value = finite(result.value + result.error);
    }
    return result;
}

} // namespace kelvarin
