// SPDX-License-Identifier: MIT
#pragma once

#include "graph/drawing.h"

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

namespace kelvarin
{

/// How much of each pixel of a bitmap a line covers. Toolkits make an outline of a wide line and fill it, which takes
/// long for lines of many short pieces; here each piece covers the pixels near it, and of pieces that overlap the
/// largest coverage counts, so that joins are round and no darker than the rest.
class line_mask
{
public:
    static constexpr int full_coverage = 255;

    line_mask(int width, int height);

    /// Adds a line through points in pixels; the middle of the first pixel is at 0.5, 0.5. `dashes` are alternating
    /// lengths of dashes and gaps in pixels, empty for a solid line. Widths from 1 pixel up.
    void add_line(std::span<const drawn_point> points, double width, std::span<const double> dashes = {});

    /// Calls `blend(x, y, coverage)`, 1 to full_coverage, once for each covered pixel, and empties the mask.
    template <class Blend> void take(const Blend& blend)
    {
        for (const pixel_place at : covered_) {
            std::uint8_t& coverage = row(at.y)[at.x];
            blend(at.x, at.y, coverage);
            coverage = 0;
        }
        covered_.clear();
    }

private:
    struct pixel_place
    {
        int x;
        int y;
    };

    std::uint8_t* row(int y)
    {
        return coverage_.data() + static_cast<std::size_t>(y) * static_cast<std::size_t>(width_);
    }
    void add_piece(drawn_point from, drawn_point to, double half_width);

    int width_;
    int height_;
    std::vector<std::uint8_t> coverage_;
    /// The pixels that are covered at all.
    std::vector<pixel_place> covered_;
};

} // namespace kelvarin
