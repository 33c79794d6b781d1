// SPDX-License-Identifier: MIT
#pragma once

#include <QPalette>
#include <QRect>

class QPainter;

namespace kelvarin
{

/// The ground behind the windows, a shade off the palette's own.
QColor ground_colour(const QPalette& palette);

/// A quiet picture for that ground: an axis and the curves of a family that cross it.
void paint_background_picture(QPainter& painter, const QRect& place, const QPalette& palette);

} // namespace kelvarin
