// SPDX-License-Identifier: MIT
#pragma once

#include "graph/drawing.h"

#include <cstddef>
#include <optional>
#include <span>
#include <utility>
#include <vector>

namespace kelvarin
{

/// The part of a straight line that lies in a box, its border included; nothing where none does. Coordinates may be as
/// large as 1e150. [LiangBarsky1984]
std::optional<std::pair<drawn_point, drawn_point>> clipped_line(drawn_point from, drawn_point to, const drawn_box& box);

/// Puts a line together from its points, cut at the border of a box: what lies outside leaves a gap between two pieces.
class clipped_path
{
public:
    clipped_path(drawn_path path, const drawn_box& box) : path_(std::move(path)), box_(box) {}

    void line_to(drawn_point point);
    /// The next point begins another piece.
    void lift() { last_.reset(); }
    drawn_path taken() { return std::move(path_); }

private:
    drawn_path path_;
    drawn_box box_;
    std::optional<drawn_point> last_;
    /// Where the last piece ended, if it ended inside.
    std::optional<drawn_point> end_;
};

/// The points of a line without those that change nothing in a picture of columns `column` wide: of points in a row
/// that share a column, the first, the lowest, the highest and the last stay, in their order. All are finite.
std::vector<drawn_point> thinned_line(std::span<const drawn_point> points, double column);

/// The points without those that stand in the same cell, `cell` wide and high, as an earlier one.
std::vector<drawn_point> thinned_points(std::span<const drawn_point> points, const drawn_box& box, double cell);

} // namespace kelvarin
