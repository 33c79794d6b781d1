// SPDX-License-Identifier: MIT
#pragma once

#include "graph/curve_style.h"
#include "graph/graph_curves.h"
#include "reg/fit_run.h"

#include <optional>
#include <vector>

namespace kelvarin
{

/// The 95 % bands of a polynomial over the range of its data: where its curve lies (confidence), and where a further
/// observation would (prediction), with the table of t values that the widths of the coefficients have. Lower and upper
/// bound of each are a curve. Returns nullopt without degrees of freedom, where the powers depend on each other, and
/// where a value is not finite. [DraperSmith1998] ch. 3
std::optional<added_curves> polynomial_bands(const fit_outcome& outcome, const regression_fit& fit);

/// Their looks: a pair shares its colour and dashes.
std::vector<curve_style> band_styles();

} // namespace kelvarin
