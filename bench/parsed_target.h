// SPDX-License-Identifier: MIT
#pragma once

#include "yardsticks.h"

#include <gsl/gsl_vector.h>
#include <muParser.h>

#include <vector>

namespace kelvarin::bench
{

/// A minimization as a small program with public libraries would make it: the target a muParser object, the gradient by
/// central differences, the method by gsl_multimin with the first step and the precision of line searches that its
/// manual shows.
class parsed_target
{
public:
    explicit parsed_target(typed_target source);
    parsed_target(const parsed_target&) = delete;
    parsed_target& operator=(const parsed_target&) = delete;

    /// The point where the gradient is shorter than `tolerance`, where the method makes no more progress, or after
    /// 10000 iterations.
    std::vector<double> solve(gsl_minimizer method, double tolerance);

    double value(const gsl_vector* x);
    void gradient(const gsl_vector* x, gsl_vector* g);

private:
    typed_target source_;
    std::vector<double> slots_;
    mu::Parser parser_;
};

} // namespace kelvarin::bench
