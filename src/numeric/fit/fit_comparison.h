// SPDX-License-Identifier: MIT
#pragma once

#include "numeric/linear/matrix.h"

#include <optional>

/// Which of two fits of the same n observations to prefer.
namespace kelvarin
{

struct fit_size
{
    double SSE = 0.0;
    /// The number of parameters.
    int p = 0;
};

/// Akaike's information criterion corrected for few observations, with the likelihood of normal residuals; their
/// variance counts as a parameter. Infinite where n is too small for p. [HurvichTsai1989]
double corrected_information(const fit_size& fit, int n);

struct nested_test
{
    double F = 0.0;
    /// Of so large an F where the additional parameters have no meaning.
    double probability = 1.0;
};

/// Whether the additional parameters of `large` explain more than chance would, where `small` is a special case of it.
/// Returns nullopt without additional parameters or degrees of freedom. [DraperSmith1998] ch. 6
std::optional<nested_test> test_additional_parameters(const fit_size& small, const fit_size& large, int n);

/// Whether each row of `some` is a linear combination of the rows of `all`, to ten digits.
bool are_spanned(const matrix& some, const matrix& all);

} // namespace kelvarin
