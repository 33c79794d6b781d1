// SPDX-License-Identifier: MIT
#pragma once

#include "graph/drawing.h"

#include <string>

namespace kelvarin
{

/// A drawing as SVG 1.1, in points. Texts are texts; lengths have two decimals, so that one drawing has one text. What
/// a shape stands for is its class: "curve curve-0".
std::string drawing_svg(const drawing& picture);

} // namespace kelvarin
