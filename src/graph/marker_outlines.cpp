// SPDX-License-Identifier: MIT
#include "graph/curve_style.h"

#include <array>
#include <utility>

namespace kelvarin
{

namespace
{

using ground = marker_stroke::ground;
using outline = std::vector<marker_stroke>;

enum class body
{
    circle,
    square,
    diamond,
    up,
    down,
    left,
    right
};

enum class dress
{
    open,
    filled,
    /// With a line across.
    barred,
    /// With a dot in the middle.
    dotted
};

marker_stroke line(std::vector<drawn_point> points)
{
    return {.points = std::move(points)};
}

marker_stroke polygon(std::vector<drawn_point> points, ground fill = ground::page)
{
    return {.points = std::move(points), .closed = true, .fill = fill};
}

marker_stroke circle(double radius, ground fill)
{
    return {.points = {}, .radius = radius, .fill = fill};
}

marker_stroke body_stroke(body shape, ground fill)
{
    switch (shape) {
    case body::circle:
        return circle(0.95, fill);
    case body::square:
        return polygon({{-0.85, -0.85}, {0.85, -0.85}, {0.85, 0.85}, {-0.85, 0.85}}, fill);
    case body::diamond:
        return polygon({{0, -1.1}, {1.1, 0}, {0, 1.1}, {-1.1, 0}}, fill);
    case body::up:
        return polygon({{0, -1.05}, {1.05, 0.8}, {-1.05, 0.8}}, fill);
    case body::down:
        return polygon({{0, 1.05}, {-1.05, -0.8}, {1.05, -0.8}}, fill);
    case body::left:
        return polygon({{-1.05, 0}, {0.8, -1.05}, {0.8, 1.05}}, fill);
    case body::right:
        return polygon({{1.05, 0}, {-0.8, 1.05}, {-0.8, -1.05}}, fill);
    }
    return {};
}

/// The line crosses the widest part of the body; for triangles that point sideways it is vertical.
marker_stroke bar_of(body shape)
{
    switch (shape) {
    case body::up:
        return line({{-0.75, 0.25}, {0.75, 0.25}});
    case body::down:
        return line({{-0.75, -0.25}, {0.75, -0.25}});
    case body::left:
        return line({{0.25, -0.75}, {0.25, 0.75}});
    case body::right:
        return line({{-0.25, -0.75}, {-0.25, 0.75}});
    default:
        return line({{-0.85, 0}, {0.85, 0}});
    }
}

drawn_point middle_of(body shape)
{
    switch (shape) {
    case body::up:
        return {0, 0.2};
    case body::down:
        return {0, -0.2};
    case body::left:
        return {0.2, 0};
    case body::right:
        return {-0.2, 0};
    default:
        return {0, 0};
    }
}

marker_stroke dot_at(drawn_point middle)
{
    constexpr double half = 0.28;
    return polygon({{middle.x - half, middle.y - half},
                    {middle.x + half, middle.y - half},
                    {middle.x + half, middle.y + half},
                    {middle.x - half, middle.y + half}},
                   ground::ink);
}

outline dressed(body shape, dress how)
{
    switch (how) {
    case dress::filled:
        return {body_stroke(shape, ground::ink)};
    case dress::barred:
        return {body_stroke(shape, ground::page), bar_of(shape)};
    case dress::dotted:
        return {body_stroke(shape, ground::page), dot_at(middle_of(shape))};
    case dress::open:
        break;
    }
    return {body_stroke(shape, ground::page)};
}

std::array<outline, marker_count> all_outlines()
{
    // The first twelve differ most: alternating open and filled bodies, then strokes.
    return {
        dressed(body::circle, dress::filled),
        dressed(body::square, dress::open),
        dressed(body::up, dress::filled),
        dressed(body::diamond, dress::open),
        dressed(body::down, dress::filled),
        dressed(body::circle, dress::open),
        dressed(body::square, dress::filled),
        dressed(body::up, dress::open),
        outline{line({{-1, 0}, {1, 0}}), line({{0, -1}, {0, 1}})},
        outline{line({{-0.85, -0.85}, {0.85, 0.85}}), line({{-0.85, 0.85}, {0.85, -0.85}})},
        dressed(body::diamond, dress::filled),
        dressed(body::down, dress::open),
        outline{line({{0, -1.1}, {0, 1.1}}), line({{-0.95, -0.55}, {0.95, 0.55}}),
                line({{-0.95, 0.55}, {0.95, -0.55}})},
        dressed(body::left, dress::filled),
        dressed(body::right, dress::open),
        dressed(body::circle, dress::barred),
        dressed(body::square, dress::dotted),
        dressed(body::left, dress::open),
        dressed(body::right, dress::filled),
        dressed(body::up, dress::barred),
        dressed(body::diamond, dress::dotted),
        outline{line({{-1, 0}, {1, 0}})},
        outline{line({{0, -1}, {0, 1}})},
        dressed(body::circle, dress::dotted),
        dressed(body::square, dress::barred),
        dressed(body::down, dress::barred),
        dressed(body::up, dress::dotted),
        dressed(body::diamond, dress::barred),
        dressed(body::down, dress::dotted),
        dressed(body::left, dress::barred),
        dressed(body::right, dress::dotted),
        dressed(body::right, dress::barred),
        dressed(body::left, dress::dotted),
        outline{polygon({{-0.9, -0.95}, {0.9, -0.95}, {-0.9, 0.95}, {0.9, 0.95}}, ground::ink)},
        outline{polygon({{-0.95, -0.9}, {-0.95, 0.9}, {0.95, -0.9}, {0.95, 0.9}}, ground::ink)},
        outline{line({{-1, 0.6}, {0, -0.7}, {1, 0.6}})},
        outline{line({{-1, -0.6}, {0, 0.7}, {1, -0.6}})},
        outline{line({{0.6, -1}, {-0.7, 0}, {0.6, 1}})},
        outline{line({{-0.6, -1}, {0.7, 0}, {-0.6, 1}})},
        outline{line({{-0.9, -0.9}, {0, 0}, {0.9, -0.9}}), line({{0, 0}, {0, 1.1}})},
    };
}

} // namespace

std::span<const marker_stroke> marker_outline(int shape)
{
    static const std::array<outline, marker_count> outlines = all_outlines();
    if (shape < 0 || shape >= marker_count) return {};
    return outlines[static_cast<std::size_t>(shape)];
}

} // namespace kelvarin
