// SPDX-License-Identifier: MIT
#include "reg/window/analysis_plot.h"

#include "desktop/look.h"

#include <QPainter>

#include <utility>

namespace kelvarin
{

namespace
{

constexpr double points_per_pixel = 0.75;

} // namespace

analysis_plot::analysis_plot(QWidget* parent) : QWidget(parent)
{
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Expanding);
}

void analysis_plot::show_points(const analysis_points& points, const std::string& x_name, const std::string& y_name)
{
    points_ = points;
    marked_.clear();
    if (!is_empty()) graph_ = analysis_graph(points_, x_name, y_name);
    update();
}

void analysis_plot::show_marks(std::vector<double> marked)
{
    marked_ = std::move(marked);
    update();
}

QSize analysis_plot::sizeHint() const
{
    return QSize(20, 11) * line_unit(*this);
}

QSize analysis_plot::minimumSizeHint() const
{
    return QSize(11, 8) * line_unit(*this);
}

void analysis_plot::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    if (is_empty()) {
        painter.setPen(quiet_palette(palette()).color(QPalette::WindowText));
        painter.drawText(rect(), Qt::AlignCenter | Qt::TextWordWrap, tr("No points without equal x"));
        return;
    }
    painter.fillRect(rect(), Qt::white);
    drawing_options options;
    options.width = width() * points_per_pixel;
    options.height = height() * points_per_pixel;
    options.pixel = points_per_pixel / devicePixelRatioF();
    painter.scale(1.0 / points_per_pixel, 1.0 / points_per_pixel);
    painter.setRenderHint(QPainter::Antialiasing);
    paint_picture(painter, draw_analysis(graph_, points_, marked_, options, metrics_));
}

} // namespace kelvarin
