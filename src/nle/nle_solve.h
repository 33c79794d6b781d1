// SPDX-License-Identifier: MIT
#pragma once

#include "nle/nle_run.h"
#include "nle/nle_system.h"

#include <span>
#include <string>
#include <string_view>
#include <vector>

/// What the kinds of nonlinear runs share.
namespace kelvarin
{

/// How a solver ended, as far as a run looks at it.
struct nle_solver_result
{
    int iterations = 0;
    cnle_code code = cnle_code::converged;
};

/// Calls the solver of `method` with the settings of this moment; x and fvec as the solver leaves them.
/// Throws what the solver throws.
nle_solver_result solve_nle(nle_method method, nle_system& system, std::span<double> x, std::span<double> fvec,
                            const settings& store, const iteration_hook& on_iteration);

/// The sum of absolute values; throws runtime_failure 6 where it is not finite.
double sum_of_absolutes(std::span<const double> values);

/// The rows of a result table; the explicit values are taken for display.
nle_solution solution_of(nle_system& system, std::span<const double> x, std::span<const double> fvec,
                         std::span<const double> guesses);

/// The box of a failed evaluation.
message_box evaluation_box(const evaluation_context& context, std::string_view title);

} // namespace kelvarin
