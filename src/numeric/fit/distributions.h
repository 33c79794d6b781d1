// SPDX-License-Identifier: MIT
#pragma once

/// Tail probabilities of the distributions that judge a fit.
namespace kelvarin
{

/// The regularised incomplete beta function I_x(a, b), for a, b above 0 and x from 0 to 1, by its continued fraction.
/// [Press1992] sec. 6.4
double incomplete_beta(double a, double b, double x);

/// The probability that Student's t of `df` degrees of freedom is farther from 0 than `t`.
double two_sided_t(double t, double df);

/// The probability that F of `df1` and `df2` degrees of freedom is above `f`.
double upper_F(double f, double df1, double df2);

/// The probability that a standard normal value is farther from 0 than `z`.
double two_sided_normal(double z);

/// The standard normal value below which the probability is `p`, from 0 to 1, both excluded.
double normal_quantile(double p);

} // namespace kelvarin
