// SPDX-License-Identifier: MIT
#include "app/window_tiles.h"

#include <algorithm>
#include <cmath>

namespace kelvarin
{

namespace
{

constexpr int most_in_one_line = 3;

/// The coordinate of the edge before part `index` of `parts` equal ones; rounding leaves no gaps.
int edge(int start, int length, int parts, int index)
{
    return start + length * index / parts;
}

QRect transposed(const QRect& place)
{
    return {place.y(), place.x(), place.height(), place.width()};
}

/// Columns of windows one below the other; if they can't be equal, the last columns have one more.
QList<QRect> columns_of(const QRect& area, int count)
{
    const int columns = count <= most_in_one_line ? 1 : static_cast<int>(std::sqrt(count));
    QList<QRect> places;
    for (int column = 0; column < columns; ++column) {
        const int rows = count / columns + (column >= columns - count % columns ? 1 : 0);
        const int left = edge(area.x(), area.width(), columns, column);
        const int right = edge(area.x(), area.width(), columns, column + 1);
        for (int row = 0; row < rows; ++row) {
            const int top = edge(area.y(), area.height(), rows, row);
            const int bottom = edge(area.y(), area.height(), rows, row + 1);
            places.append({left, top, right - left, bottom - top});
        }
    }
    return places;
}

} // namespace

QList<QRect> tiled_areas(const QRect& area, int count, tiling_direction direction)
{
    if (direction == tiling_direction::horizontal) return columns_of(area, count);
    QList<QRect> places = columns_of(transposed(area), count);
    for (QRect& place : places)
        place = transposed(place);
    return places;
}

QList<QRect> cascaded_areas(const QRect& area, int count, int offset)
{
    const int steps = std::min(std::max(count - 1, 0), std::max(0, area.height() * 2 / 3 / std::max(1, offset)));
    const int rounds = (count + steps) / (steps + 1);
    // Only if one diagonal is enough do windows move to the right with each step. Otherwise each round stands to the
    // right of the one before, whose titles remain visible up to there.
    const int step_right = rounds > 1 ? 0 : offset;
    const int round_right = area.width() / (rounds + 1);
    const int width = area.width() - (rounds > 1 ? (rounds - 1) * round_right : steps * offset);
    const QSize size(std::max(1, width), std::max(1, area.height() - steps * offset));
    QList<QRect> places;
    for (int i = 0; i < count; ++i) {
        const int step = i % (steps + 1);
        const int round = i / (steps + 1);
        const QPoint corner(round * round_right + step * step_right, step * offset);
        places.append(QRect(area.topLeft() + corner, size));
    }
    return places;
}

} // namespace kelvarin
