// SPDX-License-Identifier: MIT
#include "leq/leq_run.h"

#include "numeric/linear/condition.h"
#include "numeric/linear/gauss_jordan.h"
#include "numeric/linear/matrix.h"
#include "numeric/linear/residual.h"
#include "platform/run_time_text.h"
#include "platform/runtime_failure.h"

#include <string>
#include <utility>
#include <vector>

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

void solve(const linear_system& system, const stopwatch& seconds, leq_outcome& outcome)
{
    std::vector<double> x = system.b;
    const double start = seconds();
    const elimination_status status = gauss_jordan_solve(system.a, x);
    outcome.elapsed_seconds = seconds() - start;
    if (status == elimination_status::singular)
        return outcome.refuse({"Error, Singular Matrix enetered !", box_icon::critical});
    outcome.residual = relative_residual(system.a, x, system.b);
    outcome.reciprocal_condition = reciprocal_condition(system.a);
    outcome.solution = std::move(x);
    outcome.has_report = true;
}

message_box failure_box(const runtime_failure& failure)
{
    return {"Error: " + std::string(failure.description()), box_icon::critical};
}

} // namespace

leq_outcome run_leq(const leq_content& content, const stopwatch& seconds)
{
    leq_outcome outcome;
    if (std::optional<leq_fault> fault = first_leq_fault(content)) {
        outcome.fault = fault->cell;
        outcome.refuse(std::move(fault->box));
        return outcome;
    }
    // The elimination can't be stopped, so there is no box for it.
    const run_ending_boxes endings = {failure_box, {}};
    guard_run(outcome, endings, [&] { solve(system_of(content), seconds, outcome); });
    return outcome;
}

} // namespace kelvarin
