// SPDX-License-Identifier: MIT
#pragma once

#include "nle/nle_run.h"
#include "nle/nle_system.h"

#include <span>
#include <string>
#include <string_view>
#include <vector>

/// Functions shared by the kinds of nonlinear runs.
namespace kelvarin
{

/// The part of a solver's summary that a run uses.
struct nle_solver_result
{
    int iterations = 0;
    cnle_code code = cnle_code::converged;
};

/// Calls the solver of `method` with the current settings; x and fvec return what the solver left in them. Throws what
/// the solver throws.
nle_solver_result solve_nle(nle_method method, nle_system& system, std::span<double> x, std::span<double> fvec,
                            const settings& store, const iteration_hook& on_iteration);

/// The sum of absolute values. Throws runtime_failure 6 if it is not finite.
double sum_of_absolutes(std::span<const double> values);

/// The rows of a result table; the explicit values are evaluated for display.
nle_solution solution_of(nle_system& system, std::span<const double> x, std::span<const double> fvec,
                         std::span<const double> guesses);

/// The box of the system's failed evaluation, with its place.
message_box evaluation_box(nle_system& system, std::string_view title);

} // namespace kelvarin
