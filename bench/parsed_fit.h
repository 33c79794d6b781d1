// SPDX-License-Identifier: MIT
#pragma once

#include "yardsticks.h"

#include <gsl/gsl_vector.h>
#include <muParser.h>

#include <vector>

namespace kelvarin::bench
{

/// A nonlinear fit as a small program with public libraries would make it: the model a muParser object, evaluated row
/// by row, the fit by gsl_multifit_nlinear with its defaults (method lm, scales of More, QR, forward differences).
class parsed_fit
{
public:
    explicit parsed_fit(typed_fit source);
    parsed_fit(const parsed_fit&) = delete;
    parsed_fit& operator=(const parsed_fit&) = delete;

    /// The parameters where a step, relative, or the gradient is below `tolerance`, or after 1000 iterations; empty
    /// where the model has no finite values.
    std::vector<double> solve(double tolerance);

    /// The residuals at the parameters; false where one is not finite.
    bool evaluate(const gsl_vector* parameters, gsl_vector* residuals);

private:
    typed_fit source_;
    std::vector<double> slots_;
    mu::Parser parser_;
};

} // namespace kelvarin::bench
