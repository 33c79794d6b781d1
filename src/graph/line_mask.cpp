// SPDX-License-Identifier: MIT
#include "graph/line_mask.h"

#include <algorithm>
#include <cmath>

namespace kelvarin
{

namespace
{

drawn_point between(drawn_point from, drawn_point to, double part)
{
    return {from.x + part * (to.x - from.x), from.y + part * (to.y - from.y)};
}

/// Walks along a line and passes on its dashes, piece by piece.
class dash_walker
{
public:
    /// A dash is shortened by half a width at both ends, where the mask rounds it off.
    dash_walker(std::span<const double> dashes, double half_width) : dashes_(dashes), half_width_(half_width)
    {
        begin_dash(0.0);
    }

    template <class PassOn> void walk(drawn_point from, drawn_point to, const PassOn& pass_on)
    {
        const double length = std::hypot(to.x - from.x, to.y - from.y);
        if (!(length > 0.0)) return;
        const double end = passed_ + length;
        while (end_ < end) {
            pass_on_part(from, to, length, pass_on);
            next();
        }
        pass_on_part(from, to, length, pass_on);
        passed_ = end;
    }

private:
    void begin_dash(double at)
    {
        const double length = dashes_[index_];
        // Of a dash that is shorter than wide a dot remains.
        const double trim = std::min(half_width_, 0.49 * length);
        begin_ = at + trim;
        end_ = at + length;
        shown_to_ = end_ - trim;
    }
    void next()
    {
        const double at = end_;
        index_ = (index_ + 1) % dashes_.size();
        begin_dash(at);
    }
    /// The part of the present dash that lies on the piece from `passed_` on.
    template <class PassOn>
    void pass_on_part(drawn_point from, drawn_point to, double length, const PassOn& pass_on) const
    {
        if (index_ % 2 == 1) return;
        const double first = std::max(begin_ - passed_, 0.0);
        const double last = std::min(shown_to_ - passed_, length);
        if (first <= last) pass_on(between(from, to, first / length), between(from, to, last / length));
    }

    std::span<const double> dashes_;
    double half_width_;
    std::size_t index_ = 0;
    double passed_ = 0.0;
    /// The present dash or gap, measured along the line: where it begins to be shown and where it ends.
    double begin_ = 0.0;
    double end_ = 0.0;
    double shown_to_ = 0.0;
};

} // namespace

line_mask::line_mask(int width, int height)
    : width_(width), height_(height), coverage_(static_cast<std::size_t>(width) * static_cast<std::size_t>(height))
{
}

void line_mask::add_line(std::span<const drawn_point> points, double width, std::span<const double> dashes)
{
    const double half_width = std::max(width, 1.0) / 2.0;
    double dash_length = 0.0;
    for (const double length : dashes)
        dash_length += length;
    if (!(dash_length > 0.0)) {
        for (std::size_t i = 1; i < points.size(); ++i)
            add_piece(points[i - 1], points[i], half_width);
        return;
    }
    dash_walker walker(dashes, half_width);
    for (std::size_t i = 1; i < points.size(); ++i)
        walker.walk(points[i - 1], points[i],
                    [&](drawn_point from, drawn_point to) { add_piece(from, to, half_width); });
}

void line_mask::add_piece(drawn_point from, drawn_point to, double half_width)
{
    const double dx = to.x - from.x;
    const double dy = to.y - from.y;
    const double squared_length = dx * dx + dy * dy;
    const double along = squared_length > 0.0 ? 1.0 / squared_length : 0.0;
    constexpr double flat = 1e-9;
    const bool is_flat = std::abs(dy) < flat;
    const double per_row = is_flat ? 0.0 : 1.0 / dy;
    const double reach = half_width + 0.5;
    const double inner = half_width - 0.5;
    // Clamped before it is cut to a whole number, which so needs no rounding down.
    const auto pixel_in = [](double place, int count) {
        return static_cast<int>(std::clamp(place, 0.0, static_cast<double>(count) - 1.0));
    };
    const int last_row = pixel_in(std::max(from.y, to.y) + reach, height_);
    for (int y = pixel_in(std::min(from.y, to.y) - reach, height_); y <= last_row; ++y) {
        const double middle = y + 0.5;
        // The part of the piece that comes near this row.
        double begin = 0.0;
        double end = 1.0;
        if (!is_flat) {
            begin = std::clamp((middle - reach - from.y) * per_row, 0.0, 1.0);
            end = std::clamp((middle + reach - from.y) * per_row, 0.0, 1.0);
        }
        const double one = from.x + begin * dx;
        const double other = from.x + end * dx;
        const int last = pixel_in(std::max(one, other) + reach, width_);
        std::uint8_t* const coverages = row(y);
        for (int x = pixel_in(std::min(one, other) - reach, width_); x <= last; ++x) {
            const double right = x + 0.5 - from.x;
            const double down = middle - from.y;
            const double part = std::clamp((right * dx + down * dy) * along, 0.0, 1.0);
            const double across = right - part * dx;
            const double upright = down - part * dy;
            const double squared = across * across + upright * upright;
            if (squared >= reach * reach) continue;
            const double covered = squared <= inner * inner ? 1.0 : std::min(reach - std::sqrt(squared), 1.0);
            const auto coverage = static_cast<std::uint8_t>(covered * full_coverage + 0.5);
            if (coverage <= coverages[x]) continue;
            if (coverages[x] == 0) covered_.push_back({x, y});
            coverages[x] = coverage;
        }
    }
}

} // namespace kelvarin
