// SPDX-License-Identifier: MIT
#pragma once

#include "deq/deq_run.h"

#include <string>
#include <vector>

namespace kelvarin
{

/// How many digits of a variable's final value agree with those of two further runs.
struct variable_accuracy
{
    std::string name;
    double value = 0.0;
    /// At a tenth of the tolerance, and by another method. From 0 to 15.
    double digits_at_tenth = 0.0;
    double digits_by_other = 0.0;
};

struct deq_accuracy : run_outcome
{
    deq_method method = deq_method::rkf45;
    deq_method other = deq_method::bs;
    /// The differential variables; empty if one of the runs gave no result.
    std::vector<variable_accuracy> variables;
};

/// The method by which the results of another are checked: of the same class, stiff or not, but built otherwise.
deq_method checking_method(deq_method method);

/// Runs the problem three times: as it is, at a tenth of the tolerance, and by checking_method, and compares the final
/// values of the differential variables. The first run without a result hands on its boxes. Never throws.
deq_accuracy check_accuracy(const deq_run_problem& problem, const settings& store, run_listener& listener);

/// The result as rich text without prolog: a line for each variable, with the digits rounded down.
std::string accuracy_text(const deq_accuracy& accuracy);

} // namespace kelvarin
