// SPDX-License-Identifier: MIT
#pragma once

#include "graph/drawing.h"

#include <cstddef>
#include <span>
#include <vector>

namespace kelvarin
{

struct curve_style
{
    drawn_colour colour = 0;
    /// As in drawn_stroke.
    std::span<const double> dashes;
    int marker = 0;
};

/// The palette in its order: the colours of Okabe and Ito, which all kinds of colour vision tell apart, with a dark
/// amber in place of the yellow, too faint for lines on white; ordered so that neighbours also differ in lightness, for
/// printers without colour. [OkabeIto2008]
std::span<const drawn_colour> curve_palette();

/// How curve number `index` is drawn: eight colours, then the same with other dashes; functions follow the curves.
curve_style curve_style_of(std::size_t index);

inline constexpr int marker_count = 40;

/// One line or circle of a marker. Lengths are radii of the marker, about its middle.
struct marker_stroke
{
    enum class ground
    {
        none,
        /// Filled with the page's colour: what lies below does not show through.
        page,
        ink
    };

    /// Of a line, else empty.
    std::vector<drawn_point> points;
    bool closed = false;
    /// Of a circle, else 0.
    double radius = 0.0;
    ground fill = ground::none;
};

/// The outline of marker 0 to 39, in the order of drawing; any other number has none.
std::span<const marker_stroke> marker_outline(int shape);

} // namespace kelvarin
