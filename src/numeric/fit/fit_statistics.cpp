// SPDX-License-Identifier: MIT
#include "numeric/fit/fit_statistics.h"

#include "numeric/arithmetic_check.h"
#include "numeric/fit/student_t.h"

#include <cassert>
#include <cmath>
#include <cstddef>

namespace kelvarin
{

fit_statistics statistics_of_fit(std::span<const double> y, std::span<const double> calculated, int p)
{
    assert(y.size() == calculated.size());
    constexpr double variance_without_freedom = 1e99;
    const auto n = static_cast<double>(y.size());
    // Divided term by term: whether the total sum of a constant column is exactly 0 depends on it.
    double mean = 0.0;
    for (const double value : y)
        mean += value / n;
    fit_statistics found;
    double SST = 0.0;
    for (std::size_t i = 0; i < y.size(); ++i) {
        found.SSE += (y[i] - calculated[i]) * (y[i] - calculated[i]);
        SST += (y[i] - mean) * (y[i] - mean);
    }
    found.R2 = 1.0 - quotient(finite(found.SSE), SST);
    found.Rmsd = std::sqrt(found.SSE) / n;
    if (static_cast<int>(y.size()) == p) {
        found.Variance = variance_without_freedom;
        return found;
    }
    found.R2adj = 1.0 - (1.0 - found.R2) * (n - 1.0) / (n - p);
    found.Variance = found.SSE / (n - p);
    return found;
}

double half_width(double variance, double diagonal, int degrees_of_freedom)
{
    if (variance < 0.0) throw runtime_failure(failure_number::invalid_argument);
    return finite(std::sqrt(variance) * std::sqrt(std::fabs(diagonal)) * Td(degrees_of_freedom));
}

} // namespace kelvarin
