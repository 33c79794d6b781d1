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

} // namespace kelvarin
