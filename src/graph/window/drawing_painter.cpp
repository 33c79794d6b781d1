// SPDX-License-Identifier: MIT
#include "graph/window/drawing_painter.h"

#include "desktop/qt_text.h"
#include "graph/curve_style.h"
#include "graph/line_mask.h"

#include <QBuffer>
#include <QPaintEngine>
#include <QPainter>
#include <QPainterPath>
#include <QPdfWriter>

#include <algorithm>
#include <cmath>
#include <optional>
#include <span>
#include <variant>
#include <vector>

namespace kelvarin
{

namespace
{

constexpr double points_per_inch = 72.0;
/// Texts are measured in this size; widths are proportional to it.
constexpr int measured_size = 200;
/// From this number on, markers on a bitmap are painted once and copied.
constexpr std::size_t least_to_stamp = 100;
/// From this number of points on, lines on a bitmap are painted by a mask.
constexpr std::size_t least_to_mask = 200;

QColor colour_of(drawn_colour colour)
{
    return QColor::fromRgb(colour);
}

QPen pen_of(const drawn_stroke& stroke)
{
    QPen pen(colour_of(stroke.colour), stroke.width, Qt::SolidLine, Qt::FlatCap, Qt::RoundJoin);
    if (!stroke.dashes.empty()) {
        QList<qreal> dashes;
        for (const double length : stroke.dashes)
            dashes.append(length);
        pen.setDashPattern(dashes);
    }
    return pen;
}

QPointF toolkit_point(drawn_point point)
{
    return {point.x, point.y};
}

QRectF toolkit_box(const drawn_box& box)
{
    return {box.left, box.top, box.width, box.height};
}

void paint_marker(QPainter& painter, const drawn_markers& markers, QPointF centre)
{
    for (const marker_stroke& stroke : marker_outline(markers.shape)) {
        painter.setBrush(stroke.fill == marker_stroke::ground::none   ? QBrush(Qt::NoBrush)
                         : stroke.fill == marker_stroke::ground::page ? QBrush(Qt::white)
                                                                      : QBrush(colour_of(markers.stroke.colour)));
        if (stroke.radius > 0.0) {
            const double radius = stroke.radius * markers.radius;
            painter.drawEllipse(centre, radius, radius);
            continue;
        }
        QPolygonF outline;
        for (const drawn_point point : stroke.points)
            outline.append(centre + toolkit_point(point) * markers.radius);
        if (stroke.closed)
            painter.drawPolygon(outline);
        else
            painter.drawPolyline(outline);
    }
}

class picture_painter
{
public:
    explicit picture_painter(QPainter& painter)
        : painter_(painter), scale_(std::sqrt(std::abs(painter.transform().determinant()))),
          is_bitmap_(painter.paintEngine()->type() == QPaintEngine::Raster)
    {
        painter_.setRenderHints(QPainter::Antialiasing | QPainter::TextAntialiasing);
        auto* const image = dynamic_cast<QImage*>(painter.device());
        if (image && image->format() == QImage::Format_RGB32) bitmap_ = image;
    }

    void operator()(const drawn_rectangle& rectangle)
    {
        QRectF box = toolkit_box(rectangle.box);
        painter_.setPen(Qt::NoPen);
        painter_.setBrush(Qt::NoBrush);
        if (rectangle.fill) painter_.fillRect(box, colour_of(*rectangle.fill));
        if (!rectangle.stroke) return;
        painter_.setPen(straight_pen(*rectangle.stroke));
        if (is_bitmap_) box = QRectF(on_pixel(box.topLeft()), on_pixel(box.bottomRight()));
        painter_.drawRect(box);
    }

    void operator()(const drawn_path& path)
    {
        const bool is_frame = path.part.role == drawn_role::tick || path.part.role == drawn_role::grid_line;
        if (bitmap_ && !is_frame && path.points.size() >= least_to_mask) return paint_by_mask(path);
        painter_.setPen(is_frame ? straight_pen(path.stroke) : pen_of(path.stroke));
        painter_.setBrush(Qt::NoBrush);
        std::vector<QPointF> piece;
        for (std::size_t i = 0; i < path.starts.size(); ++i) {
            const std::size_t end = i + 1 < path.starts.size() ? path.starts[i + 1] : path.points.size();
            piece.clear();
            for (std::size_t point = path.starts[i]; point < end; ++point) {
                const QPointF at = toolkit_point(path.points[point]);
                piece.push_back(is_frame && is_bitmap_ ? on_pixel(at) : at);
            }
            painter_.drawPolyline(piece.data(), static_cast<int>(piece.size()));
        }
    }

    void operator()(const drawn_markers& markers)
    {
        painter_.setPen(pen_of(markers.stroke));
        if (is_bitmap_ && markers.points.size() >= least_to_stamp) return stamp(markers);
        for (const drawn_point point : markers.points)
            paint_marker(painter_, markers, toolkit_point(point));
    }

    void operator()(const drawn_text& text)
    {
        painter_.save();
        painter_.translate(text.position.x, text.position.y);
        painter_.rotate(text.angle);
        // Painted in the device's own units, in which the toolkit makes the best glyphs.
        painter_.scale(1.0 / scale_, 1.0 / scale_);
        QFont font = toolkit_font(text.font);
        font.setPointSizeF(text.font.size * scale_ * points_per_inch / painter_.device()->logicalDpiY());
        painter_.setFont(font);
        painter_.setPen(colour_of(text.colour));
        const QString words = to_qstring(text.text);
        const double width = QFontMetricsF(font, painter_.device()).horizontalAdvance(words);
        const double before = text.anchor == text_anchor::start ? 0.0
                              : text.anchor == text_anchor::end ? width
                                                                : width / 2.0;
        painter_.drawText(QPointF(-before, 0.0), words);
        painter_.restore();
    }

private:
    void paint_by_mask(const drawn_path& path)
    {
        if (!mask_) mask_.emplace(bitmap_->width(), bitmap_->height());
        const QTransform to_device = painter_.deviceTransform();
        const double scale = std::sqrt(std::abs(to_device.determinant()));
        const double width = path.stroke.width * scale;
        std::vector<double> dashes;
        for (const double length : path.stroke.dashes)
            dashes.push_back(length * width);
        std::vector<drawn_point> piece;
        for (std::size_t i = 0; i < path.starts.size(); ++i) {
            const std::size_t end = i + 1 < path.starts.size() ? path.starts[i + 1] : path.points.size();
            piece.clear();
            for (std::size_t point = path.starts[i]; point < end; ++point) {
                const QPointF at = to_device.map(toolkit_point(path.points[point]));
                piece.push_back({at.x(), at.y()});
            }
            mask_->add_line(piece, width, dashes);
        }
        const QRgb ink = colour_of(path.stroke.colour).rgb();
        uchar* const bits = bitmap_->bits();
        const qsizetype bytes_per_line = bitmap_->bytesPerLine();
        mask_->take([&](int x, int y, int coverage) {
            QRgb& pixel = reinterpret_cast<QRgb*>(bits + y * bytes_per_line)[x];
            if (coverage == line_mask::full_coverage) {
                pixel = ink;
                return;
            }
            const auto mixed = [coverage](int below, int above) {
                return below + (above - below) * coverage / line_mask::full_coverage;
            };
            pixel =
                qRgb(mixed(qRed(pixel), qRed(ink)), mixed(qGreen(pixel), qGreen(ink)), mixed(qBlue(pixel), qBlue(ink)));
        });
    }

    /// The pen of a straight line, which is at least one whole pixel wide.
    QPen straight_pen(const drawn_stroke& stroke) const
    {
        QPen pen = pen_of(stroke);
        if (is_bitmap_) pen.setWidthF(std::max(1.0, std::round(stroke.width * scale_)) / scale_);
        return pen;
    }

    /// The position in the middle of its pixel.
    QPointF on_pixel(QPointF position) const
    {
        const QTransform& to_device = painter_.transform();
        const QPointF device = to_device.map(position);
        return to_device.inverted().map(QPointF(std::floor(device.x()) + 0.5, std::floor(device.y()) + 0.5));
    }

    void stamp(const drawn_markers& markers)
    {
        const double dots = scale_ * painter_.device()->devicePixelRatioF();
        const double half = std::ceil((1.3 * markers.radius + markers.stroke.width) * dots);
        const int side = 2 * static_cast<int>(half) + 1;
        QImage stamp(side, side, QImage::Format_ARGB32_Premultiplied);
        stamp.fill(Qt::transparent);
        {
            QPainter marker(&stamp);
            marker.setRenderHint(QPainter::Antialiasing);
            marker.translate(half + 0.5, half + 0.5);
            marker.scale(dots, dots);
            marker.setPen(pen_of(markers.stroke));
            paint_marker(marker, markers, {0.0, 0.0});
        }
        stamp.setDevicePixelRatio(painter_.device()->devicePixelRatioF());
        const QTransform to_device = painter_.transform();
        painter_.save();
        painter_.resetTransform();
        const double ratio = stamp.devicePixelRatio();
        for (const drawn_point point : markers.points) {
            const QPointF device = to_device.map(toolkit_point(point)) * ratio;
            painter_.drawImage(QPointF(std::floor(device.x()) - half, std::floor(device.y()) - half) / ratio, stamp);
        }
        painter_.restore();
    }

    QPainter& painter_;
    double scale_;
    bool is_bitmap_;
    /// The bitmap that is painted on; null if it is none, or has another format.
    QImage* bitmap_ = nullptr;
    std::optional<line_mask> mask_;
};

} // namespace

QFont toolkit_font(const graph_font& font)
{
    QFont made;
    const QStringList usual = {QStringLiteral("Liberation Sans"), QStringLiteral("Arial"), QStringLiteral("Helvetica"),
                               QStringLiteral("DejaVu Sans")};
    const bool is_usual = font.name.empty() || font.name == graph_font().name;
    made.setFamilies(is_usual ? usual : QStringList(to_qstring(font.name)) + usual);
    made.setStyleHint(QFont::SansSerif);
    made.setBold(font.bold);
    made.setItalic(font.italic);
    made.setHintingPreference(QFont::PreferNoHinting);
    return made;
}

const QFontMetricsF& toolkit_metrics::metrics_of(const graph_font& font) const
{
    const std::tuple<std::string, bool, bool> key = {font.name, font.bold, font.italic};
    const auto known = metrics_.find(key);
    if (known != metrics_.end()) return known->second;
    QFont measured = toolkit_font(font);
    measured.setPixelSize(measured_size);
    return metrics_.emplace(key, QFontMetricsF(measured)).first->second;
}

double toolkit_metrics::width(std::string_view text, const graph_font& font) const
{
    return metrics_of(font).horizontalAdvance(to_qstring(text)) * font.size / measured_size;
}

double toolkit_metrics::ascent(const graph_font& font) const
{
    return metrics_of(font).ascent() * font.size / measured_size;
}

double toolkit_metrics::descent(const graph_font& font) const
{
    return metrics_of(font).descent() * font.size / measured_size;
}

void paint_picture(QPainter& painter, const drawn_picture& picture)
{
    picture_painter paint(painter);
    for (const drawn_shape& shape : picture.shapes)
        std::visit(paint, shape);
}

QImage picture_image(const drawn_picture& picture, double pixels_per_point)
{
    const auto pixels = [pixels_per_point](double length) {
        return std::max(1, static_cast<int>(std::lround(length * pixels_per_point)));
    };
    QImage image(pixels(picture.width), pixels(picture.height), QImage::Format_RGB32);
    image.fill(Qt::white);
    {
        QPainter painter(&image);
        painter.scale(pixels_per_point, pixels_per_point);
        paint_picture(painter, picture);
    }
    // Programs show and print it in the size that it was made for.
    constexpr double inches_per_metre = 1.0 / 0.0254;
    const int dots = static_cast<int>(std::lround(pixels_per_point * points_per_inch * inches_per_metre));
    image.setDotsPerMeterX(dots);
    image.setDotsPerMeterY(dots);
    return image;
}

std::string picture_pdf(const drawn_picture& picture, const QString& title)
{
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    {
        QPdfWriter writer(&buffer);
        writer.setTitle(title);
        writer.setCreator(QStringLiteral("Kelvarin"));
        writer.setPageSize(
            QPageSize(QSizeF(picture.width, picture.height), QPageSize::Point, QString(), QPageSize::ExactMatch));
        writer.setPageMargins(QMarginsF());
        QPainter painter(&writer);
        const double dots = writer.resolution() / points_per_inch;
        painter.scale(dots, dots);
        paint_picture(painter, picture);
    }
    return bytes.toStdString();
}

} // namespace kelvarin
