// SPDX-License-Identifier: MIT
#include "graph/curve_style.h"

#include <array>
#include <utility>

namespace kelvarin
{

namespace
{

using marker_fill = marker_stroke::ground;
using marker_strokes = std::vector<marker_stroke>;

enum class marker_body
{
    circle,
    square,
    diamond,
    up,
    down,
    left,
    right
};

enum class marker_interior
{
    open,
    filled,
    /// With a line across.
    barred,
    /// With a dot in the middle.
    dotted
};

marker_stroke line_stroke(std::vector<drawn_point> points)
{
    return {.points = std::move(points)};
}

marker_stroke polygon_stroke(std::vector<drawn_point> points, marker_fill fill = marker_fill::page)
{
    return {.points = std::move(points), .closed = true, .fill = fill};
}

marker_stroke circle_stroke(double radius, marker_fill fill)
{
    return {.points = {}, .radius = radius, .fill = fill};
}

marker_stroke body_stroke(marker_body shape, marker_fill fill)
{
    switch (shape) {
    case marker_body::circle:
        return circle_stroke(0.95, fill);
    case marker_body::square:
        return polygon_stroke({{-0.85, -0.85}, {0.85, -0.85}, {0.85, 0.85}, {-0.85, 0.85}}, fill);
    case marker_body::diamond:
        return polygon_stroke({{0, -1.1}, {1.1, 0}, {0, 1.1}, {-1.1, 0}}, fill);
    case marker_body::up:
        return polygon_stroke({{0, -1.05}, {1.05, 0.8}, {-1.05, 0.8}}, fill);
    case marker_body::down:
        return polygon_stroke({{0, 1.05}, {-1.05, -0.8}, {1.05, -0.8}}, fill);
    case marker_body::left:
        return polygon_stroke({{-1.05, 0}, {0.8, -1.05}, {0.8, 1.05}}, fill);
    case marker_body::right:
        return polygon_stroke({{1.05, 0}, {-0.8, 1.05}, {-0.8, -1.05}}, fill);
    }
    return {};
}

/// The line crosses the widest part of the body; for triangles that point sideways it is vertical.
marker_stroke bar_of(marker_body shape)
{
    switch (shape) {
    case marker_body::up:
        return line_stroke({{-0.75, 0.25}, {0.75, 0.25}});
    case marker_body::down:
        return line_stroke({{-0.75, -0.25}, {0.75, -0.25}});
    case marker_body::left:
        return line_stroke({{0.25, -0.75}, {0.25, 0.75}});
    case marker_body::right:
        return line_stroke({{-0.25, -0.75}, {-0.25, 0.75}});
    default:
        return line_stroke({{-0.85, 0}, {0.85, 0}});
    }
}

drawn_point middle_of(marker_body shape)
{
    switch (shape) {
    case marker_body::up:
        return {0, 0.2};
    case marker_body::down:
        return {0, -0.2};
    case marker_body::left:
        return {0.2, 0};
    case marker_body::right:
        return {-0.2, 0};
    default:
        return {0, 0};
    }
}

marker_stroke dot_at(drawn_point middle)
{
    constexpr double half = 0.28;
    return polygon_stroke({{middle.x - half, middle.y - half},
                           {middle.x + half, middle.y - half},
                           {middle.x + half, middle.y + half},
                           {middle.x - half, middle.y + half}},
                          marker_fill::ink);
}

marker_strokes outline_of(marker_body shape, marker_interior interior)
{
    switch (interior) {
    case marker_interior::filled:
        return {body_stroke(shape, marker_fill::ink)};
    case marker_interior::barred:
        return {body_stroke(shape, marker_fill::page), bar_of(shape)};
    case marker_interior::dotted:
        return {body_stroke(shape, marker_fill::page), dot_at(middle_of(shape))};
    case marker_interior::open:
        break;
    }
    return {body_stroke(shape, marker_fill::page)};
}

std::array<marker_strokes, marker_count> all_outlines()
{
    // The first twelve differ most: alternating open and filled bodies, then strokes.
    return {
        outline_of(marker_body::circle, marker_interior::filled),
        outline_of(marker_body::square, marker_interior::open),
        outline_of(marker_body::up, marker_interior::filled),
        outline_of(marker_body::diamond, marker_interior::open),
        outline_of(marker_body::down, marker_interior::filled),
        outline_of(marker_body::circle, marker_interior::open),
        outline_of(marker_body::square, marker_interior::filled),
        outline_of(marker_body::up, marker_interior::open),
        marker_strokes{line_stroke({{-1, 0}, {1, 0}}), line_stroke({{0, -1}, {0, 1}})},
        marker_strokes{line_stroke({{-0.85, -0.85}, {0.85, 0.85}}), line_stroke({{-0.85, 0.85}, {0.85, -0.85}})},
        outline_of(marker_body::diamond, marker_interior::filled),
        outline_of(marker_body::down, marker_interior::open),
        marker_strokes{line_stroke({{0, -1.1}, {0, 1.1}}), line_stroke({{-0.95, -0.55}, {0.95, 0.55}}),
                       line_stroke({{-0.95, 0.55}, {0.95, -0.55}})},
        outline_of(marker_body::left, marker_interior::filled),
        outline_of(marker_body::right, marker_interior::open),
        outline_of(marker_body::circle, marker_interior::barred),
        outline_of(marker_body::square, marker_interior::dotted),
        outline_of(marker_body::left, marker_interior::open),
        outline_of(marker_body::right, marker_interior::filled),
        outline_of(marker_body::up, marker_interior::barred),
        outline_of(marker_body::diamond, marker_interior::dotted),
        marker_strokes{line_stroke({{-1, 0}, {1, 0}})},
        marker_strokes{line_stroke({{0, -1}, {0, 1}})},
        outline_of(marker_body::circle, marker_interior::dotted),
        outline_of(marker_body::square, marker_interior::barred),
        outline_of(marker_body::down, marker_interior::barred),
        outline_of(marker_body::up, marker_interior::dotted),
        outline_of(marker_body::diamond, marker_interior::barred),
        outline_of(marker_body::down, marker_interior::dotted),
        outline_of(marker_body::left, marker_interior::barred),
        outline_of(marker_body::right, marker_interior::dotted),
        outline_of(marker_body::right, marker_interior::barred),
        outline_of(marker_body::left, marker_interior::dotted),
        marker_strokes{polygon_stroke({{-0.9, -0.95}, {0.9, -0.95}, {-0.9, 0.95}, {0.9, 0.95}}, marker_fill::ink)},
        marker_strokes{polygon_stroke({{-0.95, -0.9}, {-0.95, 0.9}, {0.95, -0.9}, {0.95, 0.9}}, marker_fill::ink)},
        marker_strokes{line_stroke({{-1, 0.6}, {0, -0.7}, {1, 0.6}})},
        marker_strokes{line_stroke({{-1, -0.6}, {0, 0.7}, {1, -0.6}})},
        marker_strokes{line_stroke({{0.6, -1}, {-0.7, 0}, {0.6, 1}})},
        marker_strokes{line_stroke({{-0.6, -1}, {0.7, 0}, {-0.6, 1}})},
        marker_strokes{line_stroke({{-0.9, -0.9}, {0, 0}, {0.9, -0.9}}), line_stroke({{0, 0}, {0, 1.1}})},
    };
}

} // namespace

std::span<const marker_stroke> marker_outline(int shape)
{
    static const std::array<marker_strokes, marker_count> outlines = all_outlines();
    if (shape < 0 || shape >= marker_count) return {};
    return outlines[static_cast<std::size_t>(shape)];
}

} // namespace kelvarin
