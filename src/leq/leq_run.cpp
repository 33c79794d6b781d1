// SPDX-License-Identifier: MIT
#include "leq/leq_run.h"

#include "numeric/condition.h"
#include "numeric/gauss_jordan.h"
#include "numeric/matrix.h"
#include "platform/run_time_text.h"
#include "platform/runtime_failure.h"

#include <algorithm>
#include <cmath>
#include <span>

namespace kelvarin
{

namespace
{

struct linear_system
{
    matrix a;
    std::vector<double> b;
};

linear_system system_of(const leq_content& content)
{
    const int n = content.count();
    linear_system system = {matrix(n, n), std::vector<double>(static_cast<std::size_t>(n))};
    for (int row = 0; row < n; ++row) {
        for (int column = 0; column < n; ++column)
            system.a(row, column) = val(content.cell(row, column));
        system.b[static_cast<std::size_t>(row)] = val(content.cell(row, n));
    }
    return system;
}

/// The difference of one row relative to its largest part. In the wider type, so that it tells of the solution
/// and not of its own rounding.
double row_residual(std::span<const double> row, std::span<const double> x, double beta)
{
    long double difference = -static_cast<long double>(beta);
    long double largest = std::fabs(static_cast<long double>(beta));
    for (std::size_t k = 0; k < row.size(); ++k) {
        const long double product = static_cast<long double>(row[k]) * x[k];
        difference += product;
        largest = std::max(largest, std::fabs(product));
    }
    return largest == 0.0L ? 0.0 : static_cast<double>(std::fabs(difference) / largest);
}

double residual_of(const linear_system& system, std::span<const double> x)
{
    double residual = 0.0;
    for (int row = 0; row < system.a.rows(); ++row)
        residual = std::max(residual, row_residual(system.a.row(row), x, system.b[static_cast<std::size_t>(row)]));
    return residual;
}

void solve(const linear_system& system, const stopwatch& seconds, leq_outcome& outcome)
{
    std::vector<double> x = system.b;
    const double start = seconds();
    const elimination_status status = gauss_jordan_solve(system.a, x);
    outcome.elapsed_seconds = seconds() - start;
    if (status == elimination_status::singular) {
        outcome.boxes.push_back({"Error, Singular Matrix enetered !", box_icon::critical});
        return;
    }
    outcome.residual = residual_of(system, x);
    outcome.reciprocal_condition = reciprocal_condition(system.a);
    outcome.solution = std::move(x);
    outcome.has_report = true;
}

} // namespace

leq_outcome run_leq(const leq_content& content, const stopwatch& seconds)
{
    leq_outcome outcome;
    if (std::optional<leq_fault> fault = first_leq_fault(content)) {
        outcome.fault = fault->cell;
        outcome.boxes.push_back(std::move(fault->box));
        return outcome;
    }
    try {
        solve(system_of(content), seconds, outcome);
    } catch (const runtime_failure& failure) {
        outcome.boxes.push_back({"Error: " + std::string(failure.description()), box_icon::critical});
    }
    return outcome;
}

} // namespace kelvarin
