// SPDX-License-Identifier: MIT
#pragma once

#include <QColor>
#include <QFont>
#include <QPalette>

class QWidget;

/// The common appearance of all windows. Every colour comes from the palette or is mixed from it.
namespace kelvarin
{

/// The height of a line of text in pixels, the unit of all distances.
int line_unit(const QWidget& widget);

/// Whether all characters of a font are equally wide.
bool has_equal_widths(const QFont& font);
/// The font itself if its characters are equally wide, else an installed fixed-width font of the same size.
QFont of_equal_widths(QFont font);

/// The fixed-width font of equations, numbers and cells, in the size of `widget`'s font.
QFont fixed_font(const QWidget& widget);

bool is_dark(const QPalette& palette);
/// The accent colour of the solving button, selections and links. Readable on the palette's base.
QColor accent(const QPalette& palette);
/// `from` mixed with the fraction `part` (0 to 1) of `to`.
QColor mixed(const QColor& from, const QColor& to, double part);

/// `palette` with the accent colour for selections and links.
QPalette accented_palette(const QPalette& palette);

/// Palettes for the button that solves, and for secondary text.
QPalette solving_palette(const QPalette& palette);
QPalette quiet_palette(const QPalette& palette);

/// Colours with a meaning, readable on the palette's base: an undefined name, a name defined twice, and the tints of
/// words in an expression.
QColor fault_colour(const QPalette& palette);
QColor warning_colour(const QPalette& palette);
QColor function_colour(const QPalette& palette);
QColor keyword_colour(const QPalette& palette);

} // namespace kelvarin
