// SPDX-License-Identifier: MIT
#pragma once

#include "numeric/fit/fit_comparison.h"
#include "platform/clock.h"
#include "reg/fit_run.h"

#include <memory>
#include <optional>
#include <string>

/// Which of two models to prefer.
namespace kelvarin
{

/// A run that gave a report, for what can be asked about its fits afterwards.
struct solved_fit
{
    fit_problem problem;
    fit_outcome outcome;
};

/// One of the fits of a run.
struct chosen_fit
{
    std::shared_ptr<const solved_fit> run;
    std::size_t place = 0;

    const regression_fit& fit() const { return run->outcome.fits[place]; }
    /// "#3.2: P = a0 + a1*T + a2*T^2".
    std::string text() const;
};

/// Both fit the same measured values.
bool fit_same_data(const chosen_fit& one, const chosen_fit& other);

struct fit_comparison
{
    /// Ordered by the number of parameters.
    chosen_fit small, large;
    /// Where the smaller model is a special case of the larger one, which is known of linear fits alone.
    std::optional<nested_test> test;
    double small_AICc = 0.0, large_AICc = 0.0;
    /// One sentence.
    std::string verdict;
};

/// Compares two fits of the same data: by the F test where one is a special case of the other, else by AICc.
fit_comparison compare_fits(const chosen_fit& one, const chosen_fit& other);

std::string comparison_report(const fit_comparison& comparison, calendar_date date);

} // namespace kelvarin
