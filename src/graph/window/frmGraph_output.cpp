// SPDX-License-Identifier: MIT
// The graph window: files, pictures, clipboard, print; the menu of a curve.

#include "desktop/qt_text.h"
#include "graph/drawing_svg.h"
#include "graph/graph_kind.h"
#include "graph/graph_table.h"
#include "graph/number_text.h"
#include "graph/window/frmGraph.h"
#include "platform/run_time_text.h"
#include "platform/saver.h"
#include "shell/document/file_places.h"
#include "shell/document/named_columns.h"

#include <QListWidget>
#include <QMenu>
#include <QMimeData>
#include <QPainter>

#include <array>
#include <sstream>
#include <vector>

namespace kelvarin
{

namespace
{

constexpr double points_per_millimetre = 72.0 / 25.4;
constexpr double points_per_pixel = 0.75;
constexpr double points_per_inch = 72.0;

const std::string picture_key = std::string(registry_root) + "\\graph_picture";

struct size_text
{
    std::string width, height, dots_per_inch;
};

/// A size by its texts in millimetres and dots per inch. Returns nullopt if they are out of bounds.
std::optional<picture_size> size_of(const size_text& text)
{
    const auto number_within = [](const std::string& typed, double least, double largest) -> std::optional<double> {
        const std::optional<double> value = numeric_value(typed);
        return value && *value >= least && *value <= largest ? value : std::nullopt;
    };
    const auto width = number_within(text.width, 10.0, 2000.0);
    const auto height = number_within(text.height, 10.0, 2000.0);
    const auto dots = number_within(text.dots_per_inch, 30.0, 1200.0);
    if (!width || !height || !dots) return std::nullopt;
    return picture_size{*width * points_per_millimetre, *height * points_per_millimetre, *dots};
}

constexpr std::array<const char*, 8> colour_names = {
    QT_TRANSLATE_NOOP("frmGraph", "&Blue"),   QT_TRANSLATE_NOOP("frmGraph", "&Pink"),
    QT_TRANSLATE_NOOP("frmGraph", "&Amber"),  QT_TRANSLATE_NOOP("frmGraph", "&Green"),
    QT_TRANSLATE_NOOP("frmGraph", "&Orange"), QT_TRANSLATE_NOOP("frmGraph", "&Red"),
    QT_TRANSLATE_NOOP("frmGraph", "&Sky"),    QT_TRANSLATE_NOOP("frmGraph", "Blac&k")};
constexpr std::array<const char*, dash_count> dash_names = {
    QT_TRANSLATE_NOOP("frmGraph", "&Solid"), QT_TRANSLATE_NOOP("frmGraph", "&Dashes"),
    QT_TRANSLATE_NOOP("frmGraph", "D&ashes and dots"), QT_TRANSLATE_NOOP("frmGraph", "D&ots"),
    QT_TRANSLATE_NOOP("frmGraph", "&Long dashes")};

QIcon icon_of_colour(drawn_colour colour)
{
    QPixmap picture(16, 16);
    picture.fill(QColor::fromRgb(colour));
    return QIcon(picture);
}

QIcon icon_of_marker(const graph_content& graph, const curve_style& style)
{
    constexpr int side = 20;
    QPixmap picture(side, side);
    picture.fill(Qt::white);
    QPainter painter(&picture);
    painter.scale(1.0 / points_per_pixel, 1.0 / points_per_pixel);
    graph_content drawn = graph;
    drawn.marker_size = 90;
    const double middle = side * points_per_pixel / 2.0;
    drawn_picture sample;
    sample.shapes.emplace_back(markers_at(drawn, style, {drawn_role::curve, 0}, {{middle, middle}}));
    paint_picture(painter, sample);
    return QIcon(picture);
}

} // namespace

file_question frmGraph::save_question() const
{
    file_question question = problem_window::save_question();
    question.default_extension = QStringLiteral("kvg");
    if (document().path().empty()) question.proposed.replace_filename(file_name_of_title(content().caption, ".kvg"));
    return question;
}

bool frmGraph::write_file(const std::filesystem::path& path, int filter_index)
{
    constexpr int bitmap_filter = 2;
    std::optional<picture_format> format = picture_format_of(path);
    if (!format && filter_index == bitmap_filter) format = picture_format::bmp;
    if (!format) return problem_window::write_file(path, 0);
    write_picture(path, *format);
    // A picture is no copy of the graph.
    return false;
}

picture_size frmGraph::size_of_window() const
{
    return {PicGraph_->width() * points_per_pixel, PicGraph_->height() * points_per_pixel,
            points_per_inch / points_per_pixel};
}

std::optional<picture_size> frmGraph::size_of_pictures(bool asks_again)
{
    registry_store& registry = context().registry;
    const auto stored = [&registry](const char* name, const char* usual) {
        return registry.read(picture_key, name).value_or(usual);
    };
    const size_text present = {stored("width", "160"), stored("height", "120"), stored("dots", "300")};
    if (!asks_again && registry.read(picture_key, "width"))
        if (const std::optional<picture_size> size = size_of(present)) return size;
    const auto typed = ask(tr("Enter width and height of saved pictures in millimetres, and dots per inch."),
                           present.width + " " + present.height + " " + present.dots_per_inch);
    if (!typed) return std::nullopt;
    size_text next;
    std::istringstream(*typed) >> next.width >> next.height >> next.dots_per_inch;
    const std::optional<picture_size> size = size_of(next);
    if (!size) {
        context().user.show(this, {"Invalid data entry.", box_icon::exclamation});
        return std::nullopt;
    }
    registry.write(picture_key, "width", next.width);
    registry.write(picture_key, "height", next.height);
    registry.write(picture_key, "dots", next.dots_per_inch);
    store_settings(context());
    return size;
}

void frmGraph::mnuPictureSize_Click()
{
    static_cast<void>(size_of_pictures(true));
}

void frmGraph::write_picture(const std::filesystem::path& path, picture_format format)
{
    // A bitmap is what the window shows.
    const std::optional<picture_size> size = format == picture_format::bmp ? size_of_window() : size_of_pictures(false);
    if (!size) return;
    if (save_file(path, picture_bytes(content(), PicGraph_->looks(), *size, format)))
        context().user.show(this, {"Error while trying to save file.", box_icon::critical});
}

bool frmGraph::print_pages(QPagedPaintDevice& device) const
{
    print_graph(device, content(), PicGraph_->looks(), size_of_window());
    return true;
}

void frmGraph::copy_picture()
{
    drawing_options looks = PicGraph_->looks();
    const picture_size size = size_of_window();
    looks.width = size.width;
    looks.height = size.height;
    auto copied = std::make_unique<QMimeData>();
    constexpr double pixels_per_point = 2.0 / points_per_pixel;
    const toolkit_metrics metrics;
    copied->setImageData(picture_image(draw_graph(content(), looks, metrics).picture, pixels_per_point));
    copied->setData(QStringLiteral("image/svg+xml"),
                    QByteArray::fromStdString(drawing_svg(draw_graph(content(), looks).picture)));
    context().user.copy(std::move(copied));
}

void frmGraph::copy_data(bool of_view)
{
    const std::optional<axis_limits> view = PicGraph_->looks().view;
    const std::optional<axis_range> range = of_view && view ? std::optional(view->x) : std::nullopt;
    context().user.copy_text(to_qstring(graph_table_text(content(), range)));
}

void frmGraph::export_data()
{
    const auto chosen = context().user.choose_file_to_save(
        this,
        {.caption = tr("Export Data"),
         .filter = "Comma separated (*.csv)|*.csv|All files (*.*)|*.*",
         .proposed = document().path().empty() ? std::filesystem::path()
                                               : std::filesystem::path(document().path()).replace_extension(".csv"),
         .default_extension = QStringLiteral("csv")});
    if (!chosen) return;
    named_columns table;
    for (const graph_column& column : content().columns) {
        table.names.push_back(column.name);
        table.columns.emplace_back(column.values.span().begin(), column.values.span().end());
    }
    if (save_file(chosen->path, csv_text(table)))
        context().user.show(this, {"Error while trying to save file.", box_icon::critical});
}

void frmGraph::show_list_menu(const QPoint& position)
{
    // Asked for by a key, the menu is that of the current line.
    const QListWidgetItem* item = lstCurves_->itemAt(position);
    if (!item) item = lstCurves_->currentItem();
    if (!item) return;
    const drawn_part part = {shows_functions() ? drawn_role::function : drawn_role::curve, lstCurves_->row(item)};
    const curve_style present = PicGraph_->style_of(part);
    auto* menu = new QMenu(this);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    const auto add = [&](QMenu& to, const QString& caption, const QIcon& icon, curve_style style) {
        to.addAction(icon, caption, this, [this, part, style] { PicGraph_->set_style(part, style); });
    };
    QMenu* const colours = menu->addMenu(tr("&Colour"));
    for (std::size_t i = 0; i < colour_names.size(); ++i) {
        const drawn_colour colour = curve_palette()[i];
        add(*colours, tr(colour_names[i]), icon_of_colour(colour), {colour, present.dashes, present.marker});
    }
    QMenu* const lines = menu->addMenu(tr("&Line"));
    for (std::size_t i = 0; i < dash_count; ++i)
        add(*lines, tr(dash_names[i]), {}, {present.colour, dashes_of(i), present.marker});
    QMenu* const markers = menu->addMenu(tr("&Marker"));
    for (int shape = 0; part.role == drawn_role::curve && shape < marker_count; ++shape) {
        const curve_style style = {present.colour, present.dashes, shape};
        add(*markers, QString::number(shape), icon_of_marker(content(), style), style);
    }
    markers->menuAction()->setVisible(!markers->isEmpty());
    QAction* const hide =
        menu->addAction(tr("&Hidden (not saved)"), this, [this, part] { PicGraph_->toggle_hidden(part); });
    hide->setCheckable(true);
    hide->setChecked(PicGraph_->is_hidden(part));
    menu->popup(lstCurves_->viewport()->mapToGlobal(position));
}

} // namespace kelvarin
