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

/// Every point is drawn, in the size that is asked for.
picture_drawer drawer_of(const graph_content& graph, const drawing_options& looks)
{
    return [&graph, &looks](const drawing_options& asked, const text_metrics& metrics) {
        drawing_options options = looks;
        options.width = asked.width;
        options.height = asked.height;
        options.pixel = 0.0;
        return draw_graph(graph, options, metrics).picture;
    };
}

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

std::string picture_bytes(const picture_drawer& draw, const QString& title, const picture_size& size,
                          picture_format format)
{
    drawing_options options;
    options.width = size.width;
    options.height = size.height;
    // Without a toolkit, and so equal to what the batch program draws.
    if (format == picture_format::svg) return drawing_svg(draw(options, sans_serif_metrics()));
    const toolkit_metrics metrics;
    const drawn_picture picture = draw(options, metrics);
    if (format == picture_format::pdf) return picture_pdf(picture, title);
    const QImage image = picture_image(picture, size.dots_per_inch / points_per_inch);
    return image_bytes(image, format == picture_format::png ? "PNG" : "BMP");
}

void print_picture(QPagedPaintDevice& device, const picture_drawer& draw, const picture_size& size)
{
    QPainter painter(&device);
    const double dots = device.logicalDpiX() / points_per_inch;
    const QRectF page = painter.viewport();
    drawing_options options;
    options.width = page.width() / dots;
    options.height = std::min(page.height() / dots, options.width * size.height / size.width);
    painter.scale(dots, dots);
    const toolkit_metrics metrics;
    paint_picture(painter, draw(options, metrics));
}

std::string picture_bytes(const graph_content& graph, const drawing_options& looks, const picture_size& size,
                          picture_format format)
{
    return picture_bytes(drawer_of(graph, looks), to_qstring(graph.title), size, format);
}

void print_graph(QPagedPaintDevice& device, const graph_content& graph, const drawing_options& looks,
                 const picture_size& size)
{
    print_picture(device, drawer_of(graph, looks), size);
}

} // namespace kelvarin
