// SPDX-License-Identifier: MIT
#pragma once

#include <QList>
#include <QRect>

namespace kelvarin
{

enum class tiling_direction
{
    /// One below the other.
    horizontal,
    /// Side by side.
    vertical
};

/// The geometries of `count` windows that fill `area` without gaps or overlaps. Up to three are in one row or column;
/// more make a grid, so that none becomes too narrow.
QList<QRect> tiled_areas(const QRect& area, int count, tiling_direction direction);

/// The geometries of `count` windows of one size, each shifted by `offset` down and to the right, so that all titles
/// are visible. If windows would have less than a third of the area's height, further ones start at the top again,
/// farther to the right.
QList<QRect> cascaded_areas(const QRect& area, int count, int offset);

} // namespace kelvarin
