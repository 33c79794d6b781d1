// SPDX-License-Identifier: MIT
#include "app/background_picture.h"

#include "desktop/look.h"

#include <QPainter>
#include <QPainterPath>

#include <cmath>

namespace kelvarin
{

QColor ground_colour(const QPalette& palette)
{
    return mixed(palette.color(QPalette::Window), palette.color(QPalette::WindowText), 0.04);
}

void paint_background_picture(QPainter& painter, const QRect& place, const QPalette& palette)
{
    constexpr int curves = 7;
    constexpr int steps = 120;
    const QColor ground = ground_colour(palette);
    const double axis = place.top() + 0.6 * place.height();
    painter.save();
    painter.setClipRect(place);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(mixed(ground, palette.color(QPalette::WindowText), 0.1), 1.5));
    painter.drawLine(QPointF(place.left(), axis), QPointF(place.right(), axis));
    for (int curve = 0; curve < curves; ++curve) {
        const double steepness = 1.5 + curve;
        QPainterPath path;
        for (int step = 0; step <= steps; ++step) {
            const double t = static_cast<double>(step) / steps;
            const double height = std::tanh(steepness * (t - 0.3 - 0.05 * curve));
            const QPointF point(place.left() + t * place.width(), axis - 0.45 * place.height() * height);
            if (step == 0)
                path.moveTo(point);
            else
                path.lineTo(point);
        }
        painter.setPen(QPen(mixed(ground, accent(palette), 0.06 + 0.02 * curve), 2.0));
        painter.drawPath(path);
    }
    painter.restore();
}

} // namespace kelvarin
