// SPDX-License-Identifier: MIT
#include "desktop/look.h"

#include <QFontDatabase>
#include <QFontInfo>
#include <QFontMetrics>
#include <QFontMetricsF>
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

/// The accent as the background of white text.
QColor accent_area(const QPalette& palette)
{
    // In a dark palette the accent is a bright colour, too strong for a whole button.
    const double muted = is_dark(palette) ? 0.5 : 0.0;
    return mixed(accent(palette), palette.color(QPalette::Window), muted);
}

/// A family whose characters are equally wide; empty if none is installed.
QString family_of_equal_widths()
{
    // Common families first: measuring a family loads it.
    QStringList families = {QStringLiteral("monospace"), QStringLiteral("Liberation Mono"),
                            QStringLiteral("DejaVu Sans Mono"), QStringLiteral("Noto Sans Mono")};
    families += QFontDatabase::families(QFontDatabase::Latin);
    for (const QString& family : families)
        if (has_equal_widths(QFont(family))) return QFontInfo(QFont(family)).family();
    return {};
}

} // namespace

int line_unit(const QWidget& widget)
{
    return QFontMetrics(widget.font()).height();
}

bool has_equal_widths(const QFont& font)
{
    const QFontMetricsF metrics(font);
    const double width = metrics.horizontalAdvance(QLatin1Char('0'));
    constexpr double rounding = 0.01;
    for (const char letter : {'i', 'l', '.', ' ', 'M', 'W', '@'})
        if (std::fabs(metrics.horizontalAdvance(QLatin1Char(letter)) - width) > rounding) return false;
    return true;
}

QFont of_equal_widths(QFont font)
{
    if (has_equal_widths(font)) return font;
    static const QString family = family_of_equal_widths();
    if (!family.isEmpty()) font.setFamilies({family});
    return font;
}

QFont fixed_font(const QWidget& widget)
{
    // The theme may name a proportional font here, and some fixed-width fonts are not marked as such: widths decide.
    QFont font = of_equal_widths(QFontDatabase::systemFont(QFontDatabase::FixedFont));
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

QPalette accented_palette(const QPalette& palette)
{
    QPalette accented = palette;
    accented.setColor(QPalette::Active, QPalette::Highlight, accent_area(palette));
    accented.setColor(QPalette::Active, QPalette::HighlightedText, QColor(Qt::white));
    for (const auto group : {QPalette::Active, QPalette::Inactive})
        accented.setColor(group, QPalette::Link, accent(palette));
    return accented;
}

QPalette solving_palette(const QPalette& palette)
{
    QPalette solving = palette;
    for (const auto group : {QPalette::Active, QPalette::Inactive}) {
        solving.setColor(group, QPalette::Button, accent_area(palette));
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
