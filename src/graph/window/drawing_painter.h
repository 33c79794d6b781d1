// SPDX-License-Identifier: MIT
#pragma once

#include "graph/drawing.h"
#include "graph/text_metrics.h"

#include <QFont>
#include <QFontMetricsF>
#include <QImage>
#include <QString>

#include <map>
#include <string>
#include <tuple>

class QPagedPaintDevice;
class QPainter;

namespace kelvarin
{

/// The toolkit's font for a text of a graph, without its size.
QFont toolkit_font(const graph_font& font);

/// Measures texts without hinting, so that a layout is the same on screen and on paper.
class toolkit_metrics final : public text_metrics
{
public:
    double width(std::string_view text, const graph_font& font) const override;
    double ascent(const graph_font& font) const override;
    double descent(const graph_font& font) const override;

private:
    const QFontMetricsF& metrics_of(const graph_font& font) const;

    mutable std::map<std::tuple<std::string, bool, bool>, QFontMetricsF> metrics_;
};

/// Paints a drawing; a unit of the painter is a point. On a screen or bitmap straight lines of axes and grid are moved
/// to whole pixels.
void paint_picture(QPainter& painter, const drawn_picture& picture);

/// The drawing as a bitmap with so many pixels in a point.
QImage picture_image(const drawn_picture& picture, double pixels_per_point);

/// The drawing as a PDF file with one page of its size. Texts remain texts.
std::string picture_pdf(const drawn_picture& picture, const QString& title);

} // namespace kelvarin
