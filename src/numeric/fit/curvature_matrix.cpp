// SPDX-License-Identifier: MIT
#include "numeric/fit/curvature_matrix.h"

#include "numeric/arithmetic_check.h"

#include <cstddef>

namespace kelvarin
{

double sum_of_squares(std::span<const double> y, std::span<const double> calculated)
{
    double sum = 0.0;
    for (std::size_t i = 0; i < y.size(); ++i)
        sum += (y[i] - calculated[i]) * (y[i] - calculated[i]);
    return finite(sum);
}

void curvature_matrix(const matrix& gradient, std::span<const double> y, std::span<const double> calculated,
                      matrix& alpha, std::span<double> beta)
{
    for (int k = 0; k < alpha.rows(); ++k) {
        const std::span<const double> of_k = gradient.row(k);
        double projection = 0.0;
        for (std::size_t i = 0; i < y.size(); ++i)
            projection += (y[i] - calculated[i]) * of_k[i];
        beta[static_cast<std::size_t>(k)] = projection;
        for (int l = 0; l <= k; ++l) {
            const std::span<const double> of_l = gradient.row(l);
            double sum = 0.0;
            for (std::size_t i = 0; i < y.size(); ++i)
                sum += of_k[i] * of_l[i];
            alpha(k, l) = alpha(l, k) = sum;
        }
    }
    require_finite(alpha.values());
    require_finite(beta);
}

} // namespace kelvarin
