// SPDX-License-Identifier: MIT
#pragma once

#include "graph/drawing.h"

#include <string>

namespace kelvarin
{

/// A drawing as SVG 1.1, in points. Texts remain texts; lengths have two decimals, so that the result is reproducible.
/// The class of a shape is what it represents: "curve curve-0".
std::string drawing_svg(const drawn_picture& picture);

} // namespace kelvarin
