// SPDX-License-Identifier: MIT
#include "opt/window/frmTarget.h"

#include "desktop/look.h"
#include "desktop/qt_text.h"
#include "graph/drawing_svg.h"

#include <QContextMenuEvent>
#include <QMenu>
#include <QMimeData>
#include <QPainter>

#include <memory>
#include <utility>

namespace kelvarin
{

namespace
{

/// Of the picture, in points.
constexpr double points_per_pixel = 0.75;

} // namespace

frmTarget::frmTarget(desktop_context& context, QWidget* parent, opt_map map)
    : QDialog(parent), context_(context), map_(std::move(map))
{
    setObjectName(QStringLiteral("frmTarget"));
    setAttribute(Qt::WA_DeleteOnClose);
    setWindowTitle(map_.title.empty() ? tr("Target") : tr("Target - %1").arg(to_qstring(map_.title)));
    setAccessibleDescription(tr("Contours of the target over %1 and %2, and the way of the iterations")
                                 .arg(to_qstring(map_.names[0]), to_qstring(map_.names[1])));
    setMinimumSize(QSize(16, 12) * line_unit(*this));
}

QSize frmTarget::sizeHint() const
{
    return QSize(44, 32) * line_unit(*this);
}

drawn_picture frmTarget::picture() const
{
    drawing_options options;
    options.width = width() * points_per_pixel;
    options.height = height() * points_per_pixel;
    return draw_opt_map(map_, context_.store, options, metrics_);
}

void frmTarget::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.scale(1.0 / points_per_pixel, 1.0 / points_per_pixel);
    paint_picture(painter, picture());
}

void frmTarget::contextMenuEvent(QContextMenuEvent* event)
{
    auto* menu = new QMenu(this);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    menu->addAction(tr("&Copy picture"), this, &frmTarget::copy_picture);
    menu->popup(event->globalPos());
}

void frmTarget::copy_picture()
{
    auto copied = std::make_unique<QMimeData>();
    copied->setImageData(picture_image(picture(), 2.0 / points_per_pixel));
    copied->setData(QStringLiteral("image/svg+xml"), QByteArray::fromStdString(drawing_svg(picture())));
    context_.user.copy(std::move(copied));
}

} // namespace kelvarin
