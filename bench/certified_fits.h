// SPDX-License-Identifier: MIT
#pragma once

#include "reg/fit_run.h"
#include "support/certified_problem.h"
#include "yardsticks.h"

#include <span>

namespace kelvarin::bench
{

/// A certified problem with its model, as a run takes it and as a yardstick does, from one of its two starts.
fit_problem as_problem(const test::certified_problem& certified, std::size_t start, nonlinear_method method);
typed_fit as_typed(const test::certified_problem& certified, std::size_t start);

/// The digits of the worst of the parameters, which stand in the order of the certified ones; 0 without values.
double worst_digits(std::span<const double> values, const test::certified_problem& certified);
/// The same of a fit, whose parameters stand in the order of the model's text.
double worst_digits(const regression_fit& fit, const test::certified_problem& certified);

} // namespace kelvarin::bench
