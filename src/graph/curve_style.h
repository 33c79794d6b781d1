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
    /// How the points are drawn: as the graph says for all curves, or as a line without markers whatever it says.
    bool always_line = false;
};

/// The palette in its order: the colours of Okabe and Ito, which are distinguishable with all kinds of colour vision,
/// with a dark amber in place of the yellow, which is too faint for lines on white; neighbours also differ in
/// lightness, for printers without colour. [OkabeIto2008]
std::span<const drawn_colour> curve_palette();

/// The dashes of lines: a solid one, dashed, dash-dotted, dotted, long dashes.
inline constexpr std::size_t dash_count = 5;
std::span<const double> dashes_of(std::size_t number);

/// The style of curve number `index`: eight colours, then the same with other dashes. Functions are numbered after the
/// curves.
curve_style curve_style_of(std::size_t index);

inline constexpr int marker_count = 40;

/// One line or circle of a marker. Lengths are in radii of the marker, from its centre.
struct marker_stroke
{
    enum class ground
    {
        none,
        /// Filled with the page's colour, which hides what is below.
        page,
        ink
    };

    /// The points of a line; empty for a circle.
    std::vector<drawn_point> points;
    bool closed = false;
    /// The radius of a circle; 0 for a line.
    double radius = 0.0;
    ground fill = ground::none;
};

/// The outline of marker 0 to 39, in drawing order; empty for any other number.
std::span<const marker_stroke> marker_outline(int shape);

} // namespace kelvarin
