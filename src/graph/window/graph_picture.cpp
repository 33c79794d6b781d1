// SPDX-License-Identifier: MIT
#include "graph/window/graph_picture.h"

#include "desktop/qt_text.h"
#include "graph/drawing_svg.h"
#include "graph/window/drawing_painter.h"
#include "platform/letter_case.h"

#include <QBuffer>
#include <QPagedPaintDevice>
#include <QPainter>

#include <algorithm>
#include <array>
#include <utility>

namespace kelvarin
{

namespace
{

constexpr double points_per_inch = 72.0;

std::string image_bytes(const QImage& image, const char* format)
{
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    image.save(&buffer, format);
    return bytes.toStdString();
}

} // namespace

std::optional<picture_format> picture_format_of(const std::filesystem::path& path)
{
    constexpr std::array<std::pair<std::string_view, picture_format>, 4> formats = {{{".svg", picture_format::svg},
                                                                                     {".pdf", picture_format::pdf},
                                                                                     {".png", picture_format::png},
                                                                                     {".bmp", picture_format::bmp}}};
    const std::string extension = lower_case(path.extension().string());
    for (const auto& [name, format] : formats)
        if (extension == name) return format;
    return std::nullopt;
}

std::string picture_bytes(const graph_content& graph, drawing_options looks, const picture_size& size,
                          picture_format format)
{
    looks.width = size.width;
    looks.height = size.height;
    looks.pixel = 0.0;
    // Without a toolkit, and so equal to what the batch program draws.
    if (format == picture_format::svg) return drawing_svg(draw_graph(graph, looks).picture);
    const toolkit_metrics metrics;
    const drawn_picture picture = draw_graph(graph, looks, metrics).picture;
    if (format == picture_format::pdf) return picture_pdf(picture, to_qstring(graph.title));
    const QImage image = picture_image(picture, size.dots_per_inch / points_per_inch);
    return image_bytes(image, format == picture_format::png ? "PNG" : "BMP");
}

void print_graph(QPagedPaintDevice& device, const graph_content& graph, drawing_options looks, const picture_size& size)
{
    QPainter painter(&device);
    const double dots = device.logicalDpiX() / points_per_inch;
    const QRectF page = painter.viewport();
    looks.width = page.width() / dots;
    looks.height = std::min(page.height() / dots, looks.width * size.height / size.width);
    looks.pixel = 0.0;
    painter.scale(dots, dots);
    const toolkit_metrics metrics;
    paint_picture(painter, draw_graph(graph, looks, metrics).picture);
}

} // namespace kelvarin
