// SPDX-License-Identifier: MIT
#include "opt/window/frmTarget.h"

#include "desktop/controls.h"
#include "desktop/look.h"
#include "desktop/qt_text.h"
#include "graph/window/drawing_painter.h"
#include "opt/opt_kind.h"
#include "platform/saver.h"
#include "shell/document/file_places.h"

#include <QDialogButtonBox>
#include <QMimeData>
#include <QPainter>
#include <QVBoxLayout>

#include <array>
#include <functional>
#include <memory>
#include <utility>

namespace kelvarin
{

namespace
{

constexpr double points_per_pixel = 0.75;
constexpr double points_per_inch = 72.0;

/// As in the filter of the dialog that saves.
constexpr std::array formats = {picture_format::svg, picture_format::pdf, picture_format::png};
constexpr const char* format_filter = "Scalable picture (*.svg)|*.svg|Document (*.pdf)|*.pdf|Picture (*.png)|*.png";

/// Paints a drawing over its whole area.
class picture_view final : public QWidget
{
public:
    picture_view(QWidget* parent, std::function<drawn_picture()> draw) : QWidget(parent), draw_(std::move(draw))
    {
        setMinimumSize(QSize(16, 12) * line_unit(*this));
    }

    QSize sizeHint() const override { return QSize(44, 32) * line_unit(*this); }

protected:
    void paintEvent(QPaintEvent*) override
    {
        QPainter painter(this);
        painter.setRenderHint(QPainter::Antialiasing);
        painter.scale(1.0 / points_per_pixel, 1.0 / points_per_pixel);
        paint_picture(painter, draw_());
    }

private:
    std::function<drawn_picture()> draw_;
};

} // namespace

frmTarget::frmTarget(desktop_context& context, QWidget* parent, opt_map map)
    : QDialog(parent), context_(context), map_(std::move(map))
{
    setObjectName(QStringLiteral("frmTarget"));
    setAttribute(Qt::WA_DeleteOnClose);
    setWindowTitle(map_.title.empty() ? tr("Target") : tr("Target - %1").arg(to_qstring(map_.title)));
    build_ui();
}

void frmTarget::build_ui()
{
    const auto draw = [this, metrics = std::make_shared<const toolkit_metrics>()] {
        drawing_options options;
        options.width = shown_size().width;
        options.height = shown_size().height;
        return drawer()(options, *metrics);
    };
    PicTarget_ = named(new picture_view(this, draw), "PicTarget");
    PicTarget_->setAccessibleName(tr("Contours of the target over %1 and %2, and the way of the iterations")
                                      .arg(to_qstring(map_.names[0]), to_qstring(map_.names[1])));
    auto* buttons = new QHBoxLayout;
    add_button(*buttons, tr("&Copy"), "cmdCopy", tr("Copy the picture"), this, &frmTarget::cmdCopy_Click);
    add_button(*buttons, tr("&Save..."), "cmdSave", tr("Save the picture in a file"), this, &frmTarget::cmdSave_Click);
    add_button(*buttons, tr("&Print..."), "cmdPrint", tr("Print the picture"), this, &frmTarget::cmdPrint_Click);
    buttons->addStretch();
    auto* cmdClose = named(new QPushButton(tr("Close")), "cmdClose");
    cmdClose->setDefault(true);
    connect(cmdClose, &QPushButton::clicked, this, &QDialog::accept);
    buttons->addWidget(cmdClose);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(PicTarget_, 1);
    layout->addLayout(buttons);
    cmdClose->setFocus();
}

picture_drawer frmTarget::drawer() const
{
    return [this](const drawing_options& options, const text_metrics& metrics) {
        return draw_opt_map(map_, context_.store, options, metrics);
    };
}

picture_size frmTarget::shown_size() const
{
    // Bitmaps are twice as fine as the screen.
    return {PicTarget_->width() * points_per_pixel, PicTarget_->height() * points_per_pixel,
            2.0 * points_per_inch / points_per_pixel};
}

void frmTarget::cmdCopy_Click()
{
    const QByteArray png =
        QByteArray::fromStdString(picture_bytes(drawer(), windowTitle(), shown_size(), picture_format::png));
    const std::string svg = picture_bytes(drawer(), windowTitle(), shown_size(), picture_format::svg);
    auto copied = std::make_unique<QMimeData>();
    copied->setImageData(QImage::fromData(png));
    copied->setData(QStringLiteral("image/svg+xml"), QByteArray::fromStdString(svg));
    context_.user.copy(std::move(copied));
}

void frmTarget::cmdSave_Click()
{
    const std::string name = file_name_of_title(to_text(windowTitle()), ".svg");
    const auto chosen =
        context_.user.choose_file_to_save(this, {.caption = tr("Save Picture"),
                                                 .filter = format_filter,
                                                 .proposed = last_folder(context_.registry, opt_kind().key) / name,
                                                 .default_extension = QStringLiteral("svg")});
    if (!chosen) return;
    const picture_format format =
        picture_format_of(chosen->path).value_or(formats.at(static_cast<std::size_t>(chosen->filter_index) - 1));
    if (save_file(chosen->path, picture_bytes(drawer(), windowTitle(), shown_size(), format)))
        context_.user.show(this, {"Error while trying to save file.", box_icon::critical});
}

void frmTarget::cmdPrint_Click()
{
    const page_painter paint = [this](QPagedPaintDevice& device) {
        print_picture(device, drawer(), shown_size());
        return true;
    };
    if (context_.user.print(this, windowTitle(), paint) == print_outcome::failed)
        context_.user.show(this, {"Error while trying to print or setting printer.", box_icon::critical});
}

} // namespace kelvarin
