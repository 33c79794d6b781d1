// SPDX-License-Identifier: MIT
#pragma once

#include <QPalette>
#include <QRect>

class QPainter;

namespace kelvarin
{

/// The background behind the windows, slightly different from the palette's window colour.
QColor ground_colour(const QPalette& palette);

/// Paints a background picture: an axis and a family of curves that cross it.
void paint_background_picture(QPainter& painter, const QRect& place, const QPalette& palette);

} // namespace kelvarin
