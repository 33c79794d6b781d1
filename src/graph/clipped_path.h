// SPDX-License-Identifier: MIT
#pragma once

#include "graph/drawing.h"

#include <cmath>
#include <cstddef>
#include <optional>
#include <span>
#include <utility>
#include <vector>

namespace kelvarin
{

/// The part of a straight line inside a box, including its border. Returns nullopt if there is none. Coordinates may be
/// as large as 1e150. [LiangBarsky1984]
std::optional<std::pair<drawn_point, drawn_point>> clipped_line(drawn_point from, drawn_point to, const drawn_box& box);

/// Builds a path from the points of a line, cut at the border of a box; parts outside leave a gap between two pieces.
class clipped_path
{
public:
    clipped_path(drawn_path path, const drawn_box& box) : path_(std::move(path)), box_(box) {}

    void line_to(drawn_point point)
    {
        const bool inside = box_.contains(point);
        if (inside && inside_ && last_ && end_ == last_) {
            // The most frequent case: nothing is cut.
            path_.points.push_back(point);
            last_ = end_ = point;
        } else {
            cut_line_to(point);
        }
        inside_ = inside;
    }
    /// The next point starts another piece.
    void lift() { last_.reset(); }
    drawn_path taken() { return std::move(path_); }

private:
    void cut_line_to(drawn_point point);

    drawn_path path_;
    drawn_box box_;
    std::optional<drawn_point> last_;
    bool inside_ = false;
    /// The end of the last piece, if it is inside the box.
    std::optional<drawn_point> end_;
};

/// Takes the points of a line one by one and passes on those that are visible in a picture with columns of width
/// `column`: of consecutive points in one column, the first, the lowest, the highest and the last, in their order. All
/// points must be finite.
class column_thinner
{
public:
    explicit column_thinner(double column) : column_(column) {}

    /// `pass_on` is called for earlier points.
    template <class PassOn> void add(drawn_point point, const PassOn& pass_on)
    {
        if (count_ > 0 && point.x >= begin_ && point.x < begin_ + column_) {
            if (point.y < lowest_.point.y) lowest_ = {point, count_};
            if (point.y > highest_.point.y) highest_ = {point, count_};
            last_ = {point, count_++};
            return;
        }
        finish(pass_on);
        begin_ = std::floor(point.x / column_) * column_;
        first_ = lowest_ = highest_ = last_ = {point, 0};
        count_ = 1;
    }

    /// Ends the line and passes on the remaining points.
    template <class PassOn> void finish(const PassOn& pass_on)
    {
        if (count_ == 0) return;
        const bool low_first = lowest_.number < highest_.number;
        std::size_t passed = count_;
        for (const numbered_point& each :
             {first_, low_first ? lowest_ : highest_, low_first ? highest_ : lowest_, last_}) {
            if (each.number != passed) pass_on(each.point);
            passed = each.number;
        }
        count_ = 0;
    }

private:
    struct numbered_point
    {
        drawn_point point;
        std::size_t number = 0;
    };

    double column_;
    /// Left edge of the current column, and the number of points in it.
    double begin_ = 0.0;
    std::size_t count_ = 0;
    numbered_point first_;
    numbered_point lowest_;
    numbered_point highest_;
    numbered_point last_;
};

/// Leaves out points that lie in the same cell, `cell` wide and high, as a later one: of markers painted in one place
/// the last one is seen. Cells are counted from 0, 0, as pixels are.
std::vector<drawn_point> thinned_points(std::span<const drawn_point> points, const drawn_box& box, double cell);

} // namespace kelvarin
