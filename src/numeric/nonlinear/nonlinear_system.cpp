// SPDX-License-Identifier: MIT
#include "numeric/nonlinear/nonlinear_system.h"

#include "numeric/work_array.h"

#include <vector>

namespace kelvarin
{

void nonlinear_system::difference_columns(std::span<const double> x, std::span<const double> f,
                                          std::span<const double> moved, std::span<const double> divisors, matrix& df)
{
    std::vector<double> point(x.begin(), x.end());
    std::vector<double> scratch = work_array(size());
    for (std::size_t j = 0; j < x.size(); ++j) {
        point[j] = moved[j];
        evaluate(point, scratch);
        point[j] = x[j];
        for (std::size_t i = 0; i < f.size(); ++i)
            df(static_cast<int>(i), static_cast<int>(j)) = (scratch[i] - f[i]) / divisors[j];
    }
}

const sparsity_pattern* nonlinear_system::difference_quotients(std::span<const double> x, std::span<const double> f,
                                                               std::span<const double> moved,
                                                               std::span<const double> divisors, matrix& df,
                                                               [[maybe_unused]] const sparsity_pattern* known)
{
    difference_columns(x, f, moved, divisors, df);
    return nullptr;
}

} // namespace kelvarin
