// SPDX-License-Identifier: MIT
#include "desktop/look.h"

#include <QFontDatabase>
#include <QFontMetrics>
#include <QWidget>

#include <cmath>

namespace kelvarin
{

namespace
{

/// A hue with a lightness that is readable on the palette's base.
QColor on_base(const QPalette& palette, int hue, int saturation, int on_light, int on_dark)
{
    return QColor::fromHsl(hue, saturation, is_dark(palette) ? on_dark : on_light);
}

} // namespace

int line_unit(const QWidget& widget)
{
    return QFontMetrics(widget.font()).height();
}

QFont fixed_font(const QWidget& widget)
{
    QFont font = QFontDatabase::systemFont(QFontDatabase::FixedFont);
    font.setPointSizeF(widget.font().pointSizeF());
    font.setStyleHint(QFont::Monospace);
    return font;
}

bool is_dark(const QPalette& palette)
{
    return palette.color(QPalette::Window).lightness() < palette.color(QPalette::WindowText).lightness();
}

QColor mixed(const QColor& from, const QColor& to, double part)
{
    const auto blend = [part](int a, int b) { return static_cast<int>(std::lround(a + (b - a) * part)); };
    return QColor(blend(from.red(), to.red()), blend(from.green(), to.green()), blend(from.blue(), to.blue()));
}

QColor accent(const QPalette& palette)
{
    return on_base(palette, 182, 170, 62, 150);
}

QPalette solving_palette(const QPalette& palette)
{
    QPalette solving = palette;
    for (const auto group : {QPalette::Active, QPalette::Inactive}) {
        // In a dark palette the accent is a bright colour, too strong for a whole button.
        const double muted = is_dark(palette) ? 0.5 : 0.0;
        solving.setColor(group, QPalette::Button, mixed(accent(palette), palette.color(QPalette::Window), muted));
        solving.setColor(group, QPalette::ButtonText, QColor(Qt::white));
    }
    return solving;
}

QPalette quiet_palette(const QPalette& palette)
{
    QPalette quiet = palette;
    quiet.setColor(QPalette::WindowText,
                   mixed(palette.color(QPalette::WindowText), palette.color(QPalette::Window), 0.3));
    return quiet;
}

QColor fault_colour(const QPalette& palette)
{
    return on_base(palette, 2, 190, 105, 160);
}

QColor warning_colour(const QPalette& palette)
{
    return on_base(palette, 32, 220, 100, 140);
}

QColor function_colour(const QPalette& palette)
{
    return on_base(palette, 215, 150, 95, 175);
}

QColor keyword_colour(const QPalette& palette)
{
    return on_base(palette, 285, 110, 95, 180);
}

} // namespace kelvarin
