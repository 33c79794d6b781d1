// SPDX-License-Identifier: MIT
#include "numeric/linear/condition.h"

#include "numeric/linear/gauss_jordan.h"
#include "platform/runtime_failure.h"

#include <algorithm>
#include <cmath>
#include <vector>

namespace kelvarin
{

namespace
{

double maximum_norm(const matrix& a)
{
    double norm = 0.0;
    for (int row = 0; row < a.rows(); ++row) {
        double sum = 0.0;
        for (const double element : a.row(row))
            sum += std::fabs(element);
        norm = std::max(norm, sum);
    }
    return norm;
}

} // namespace

double reciprocal_condition(matrix a)
{
    const double norm = maximum_norm(a);
    std::vector<double> no_right_side(static_cast<std::size_t>(a.rows()), 0.0);
    try {
        if (gauss_jordan_inverse(a, no_right_side) == elimination_status::singular) return 0.0;
    } catch (const runtime_failure&) {
        return 0.0;
    }
    return 1.0 / (norm * maximum_norm(a));
}

} // namespace kelvarin
