// SPDX-License-Identifier: MIT
#pragma once

#include <QList>
#include <QRect>

namespace kelvarin
{

enum class tiling
{
    /// One below the other.
    horizontal,
    /// Side by side.
    vertical
};

/// Places for `count` windows that fill `area` without gaps or overlaps. Up to three stand in one row or column;
/// more make a grid, so that none becomes a mere strip.
QList<QRect> tiles(const QRect& area, int count, tiling direction);

/// Places for `count` windows of one size, each a step of `offset` further down and to the right, so that the titles of
/// all are seen. Where that would leave less than a third of the area's height, further windows start at the top again.
QList<QRect> cascade_places(const QRect& area, int count, int offset);

} // namespace kelvarin
