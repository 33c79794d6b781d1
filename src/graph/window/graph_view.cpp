// SPDX-License-Identifier: MIT
#include "graph/window/graph_view.h"

#include "desktop/look.h"
#include "desktop/qt_text.h"
#include "platform/runtime_failure.h"

#include <QContextMenuEvent>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QWheelEvent>

#include <algorithm>
#include <cmath>
#include <new>
#include <utility>

namespace kelvarin
{

namespace
{

/// A pixel is 1/96 inch, a point 1/72.
constexpr double points_per_pixel = 0.75;
constexpr double wheel_factor = 1.25;
/// The pointer snaps to points of curves within this distance, in points.
constexpr double snap_distance = 8.0;
/// A press that moves by less, in pixels, is a click.
constexpr double click_distance = 4.0;
/// A picture of more pixels, 1 GB, is of no screen: it would only take the memory of everything else.
constexpr qint64 most_pixels = qint64{1} << 28;
constexpr double part_of_pan_by_key = 0.1;

QString number(double value)
{
    return QString::number(value, 'g', 7);
}

bool is_movable(drawn_role role)
{
    return role == drawn_role::title || role == drawn_role::subtitle || role == drawn_role::legend;
}

} // namespace

graph_view::graph_view(QWidget* parent) : QWidget(parent)
{
    setObjectName(QStringLiteral("PicGraph"));
    setAccessibleName(tr("Graph"));
    setFocusPolicy(Qt::StrongFocus);
    setMouseTracking(true);
    setAttribute(Qt::WA_OpaquePaintEvent);
}

QSize graph_view::sizeHint() const
{
    const auto pixels = [](double twips) {
        constexpr double least = 200.0;
        constexpr double largest = 2000.0;
        return static_cast<int>(std::clamp(twips / twips_per_point / points_per_pixel, least, largest));
    };
    return {pixels(graph_.window_size.width), pixels(graph_.window_size.height)};
}

QSize graph_view::minimumSizeHint() const
{
    return {160, 120};
}

void graph_view::show_graph(const graph_content& graph)
{
    graph_ = graph;
    has_failed_ = false;
    const QString count = QString::number(count_visible_curves(graph_));
    setAccessibleDescription(tr("%1 curves over %2").arg(count, to_qstring(graph_.columns.front().name)));
    updateGeometry();
    redraw();
}

drawing_options graph_view::looks() const
{
    drawing_options options;
    options.scales = scales_;
    options.hidden = hidden_;
    options.styles = styles_;
    if (!views_.empty()) options.view = views_.back();
    return options;
}

const graph_drawing& graph_view::drawing()
{
    if (is_drawn_) return drawing_;
    drawing_options options = looks();
    options.width = width() * points_per_pixel;
    options.height = height() * points_per_pixel;
    options.pixel = points_per_pixel / devicePixelRatioF();
    if (moved_ && moved_->has_moved) {
        graph_content moved = graph_;
        const graph_place place = {moved_->corner.y * twips_per_point, moved_->corner.x * twips_per_point};
        for (std::optional<graph_place>* each : {&moved.title_place, &moved.subtitle_place, &moved.legend_place})
            if (*each && graph_.window_size.width > 0.0 && graph_.window_size.height > 0.0) {
                (*each)->top *= size_in_twips().height / graph_.window_size.height;
                (*each)->left *= size_in_twips().width / graph_.window_size.width;
            }
        moved.window_size = size_in_twips();
        (moved_->role == drawn_role::title      ? moved.title_place
         : moved_->role == drawn_role::subtitle ? moved.subtitle_place
                                                : moved.legend_place) = place;
        drawing_ = draw_graph(moved, options, metrics_);
    } else {
        drawing_ = draw_graph(graph_, options, metrics_);
    }
    is_drawn_ = true;
    picture_ = {};
    return drawing_;
}

graph_size graph_view::size_in_twips() const
{
    return {height() * points_per_pixel * twips_per_point, width() * points_per_pixel * twips_per_point};
}

void graph_view::redraw()
{
    is_drawn_ = false;
    update();
}

drawn_point graph_view::page_point(QPointF position) const
{
    return {position.x() * points_per_pixel, position.y() * points_per_pixel};
}

QPointF graph_view::widget_point(drawn_point point) const
{
    return QPointF(point.x, point.y) / points_per_pixel;
}

void graph_view::paintEvent(QPaintEvent*)
{
    try {
        paint_graph();
    } catch (const std::bad_alloc&) {
        picture_ = {};
        // Queued: a box inside of painting would paint again.
        if (!std::exchange(has_failed_, true))
            QMetaObject::invokeMethod(
                this, [this] { emit drawing_failed(to_qstring(runtime_failure_text(failure_number::out_of_memory))); },
                Qt::QueuedConnection);
    }
}

void graph_view::paint_graph()
{
    const graph_drawing& drawn = drawing();
    const QSize pixels = size() * devicePixelRatioF();
    if (picture_.size() != pixels) {
        if (qint64{pixels.width()} * pixels.height() > most_pixels) throw std::bad_alloc();
        picture_ = QImage(pixels, QImage::Format_RGB32);
        if (picture_.isNull()) throw std::bad_alloc();
        picture_.setDevicePixelRatio(devicePixelRatioF());
        picture_.fill(Qt::white);
        QPainter painter(&picture_);
        painter.scale(1.0 / points_per_pixel, 1.0 / points_per_pixel);
        paint_picture(painter, drawn.picture);
    }
    QPainter painter(this);
    painter.drawImage(0, 0, picture_);
    paint_marks(painter);
}

void graph_view::paint_marks(QPainter& painter)
{
    const QColor colour = accent(palette());
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(colour, 1.0, Qt::DashLine));
    if (gesture_ == gesture::rubber_band) painter.drawRect(QRectF(pressed_at_, now_at_).normalized());
    if (moved_) {
        if (const std::optional<drawn_box> box = box_of(drawing_, moved_->role))
            painter.drawRect(QRectF(widget_point({box->left, box->top}), widget_point({box->right(), box->bottom()})));
    }
    if (!drawing_.mapping) return;
    painter.setPen(QPen(colour, 1.5));
    QPolygonF line;
    for (const drawn_point mark : marks_) {
        const drawn_point at = drawing_.mapping->at(mark.x, mark.y);
        if (!drawing_.plot.contains(at)) continue;
        const QPointF centre = widget_point(at);
        constexpr double arm = 5.0;
        painter.drawLine(centre - QPointF(arm, 0), centre + QPointF(arm, 0));
        painter.drawLine(centre - QPointF(0, arm), centre + QPointF(0, arm));
        line.append(centre);
    }
    if (line.size() == 2) {
        painter.setPen(QPen(colour, 1.0, Qt::DotLine));
        painter.drawPolyline(line);
    }
    if (hasFocus()) {
        painter.setRenderHint(QPainter::Antialiasing, false);
        painter.setPen(QPen(colour, 1.0));
        painter.drawRect(rect().adjusted(0, 0, -1, -1));
    }
}

void graph_view::resizeEvent(QResizeEvent*)
{
    redraw();
}

void graph_view::show_box(const drawn_box& box, bool as_step)
{
    if (!drawing().mapping) return;
    const std::optional<axis_limits> limits = limits_of_box(*drawing().mapping, box);
    if (!limits) return;
    if (!as_step && !views_.empty()) views_.pop_back();
    views_.push_back(*limits);
    redraw();
    emit view_changed();
}

void graph_view::zoom(double factor)
{
    show_box(zoomed_box(drawing().plot, drawing().plot.middle(), factor), true);
}

void graph_view::step_back()
{
    since_step_.invalidate();
    if (views_.empty()) return;
    views_.pop_back();
    redraw();
    emit view_changed();
}

void graph_view::show_all()
{
    views_.clear();
    redraw();
    emit view_changed();
}

void graph_view::set_scales(axis_scales scales)
{
    scales_ = scales;
    redraw();
    emit view_changed();
}

bool graph_view::is_hidden(drawn_part part) const
{
    return std::ranges::find(hidden_, part) != hidden_.end();
}

void graph_view::toggle_hidden(drawn_part part)
{
    if (std::erase(hidden_, part) == 0) hidden_.push_back(part);
    redraw();
    emit style_changed();
}

void graph_view::set_style(drawn_part part, const curve_style& style)
{
    std::erase_if(styles_, [part](const auto& each) { return each.first == part; });
    styles_.emplace_back(part, style);
    redraw();
    emit style_changed();
}

curve_style graph_view::style_of(drawn_part part) const
{
    for (const auto& [own, style] : styles_)
        if (own == part) return style;
    const auto index = static_cast<std::size_t>(part.index);
    return curve_style_of(part.role == drawn_role::function ? graph_.curve_count() + index : index);
}

void graph_view::forget_parts()
{
    hidden_.clear();
    styles_.clear();
    redraw();
}

void graph_view::select_part(drawn_role role)
{
    const std::optional<drawn_box> box = box_of(drawing(), role);
    if (!box) return;
    setFocus(Qt::OtherFocusReason);
    moved_ = moved_part{role, {box->left, box->top}, false};
    emit told(tr("Arrow keys move it, with Shift by larger steps; Enter keeps the place, Esc restores it."));
    update();
}

void graph_view::move_to(drawn_point corner)
{
    if (!moved_) return;
    const std::optional<drawn_box> box = box_of(drawing(), moved_->role);
    if (!box) return;
    // At 0, 0 the drawing would determine the place.
    constexpr double least = 1.0 / twips_per_point;
    const double right = std::max(least, width() * points_per_pixel - box->width);
    const double bottom = std::max(least, height() * points_per_pixel - box->height);
    moved_->corner = {std::clamp(corner.x, least, right), std::clamp(corner.y, least, bottom)};
    moved_->has_moved = true;
    redraw();
}

void graph_view::end_moving(bool keep)
{
    if (!moved_) return;
    const moved_part moved = *moved_;
    moved_.reset();
    emit told({});
    redraw();
    if (keep && moved.has_moved)
        emit part_moved(moved.role, {moved.corner.y * twips_per_point, moved.corner.x * twips_per_point});
}

void graph_view::mousePressEvent(QMouseEvent* event)
{
    end_moving(true);
    pressed_at_ = now_at_ = event->position();
    pressed_part_.reset();
    const bool pans = event->button() == Qt::MiddleButton || (event->button() == Qt::LeftButton && space_held_);
    if (pans && drawing().mapping) {
        gesture_ = gesture::pan;
        // The first movement makes a step of its own.
        panned_from_ = drawing().mapping;
        views_.push_back(drawing().limits);
        setCursor(Qt::ClosedHandCursor);
        return;
    }
    if (event->button() != Qt::LeftButton) return;
    pressed_part_ = part_at(drawing(), page_point(pressed_at_));
    if (pressed_part_ && is_movable(pressed_part_->part.role)) {
        gesture_ = gesture::move_part;
        moved_ = moved_part{pressed_part_->part.role, {pressed_part_->box.left, pressed_part_->box.top}, false};
    } else if (drawing().mapping && drawing().plot.contains(page_point(pressed_at_))) {
        gesture_ = gesture::rubber_band;
    }
    update();
}

void graph_view::mouseMoveEvent(QMouseEvent* event)
{
    now_at_ = event->position();
    const QPointF moved = now_at_ - pressed_at_;
    const bool is_drag = moved.manhattanLength() >= click_distance;
    switch (gesture_) {
    case gesture::move_part:
        if (is_drag || (moved_ && moved_->has_moved)) {
            const drawn_box& box = pressed_part_->box;
            move_to({box.left + moved.x() * points_per_pixel, box.top + moved.y() * points_per_pixel});
        }
        return;
    case gesture::pan:
        pan_by(moved);
        return;
    case gesture::rubber_band:
        update();
        break;
    case gesture::none: {
        const std::optional<picked_part> part = part_at(drawing(), page_point(now_at_));
        setCursor(space_held_                                    ? Qt::OpenHandCursor
                  : part && is_movable(part->part.role)          ? Qt::SizeAllCursor
                  : part                                         ? Qt::IBeamCursor
                  : drawing().plot.contains(page_point(now_at_)) ? Qt::CrossCursor
                                                                 : Qt::ArrowCursor);
    }
    }
    if (!moved_) tell_position(page_point(now_at_));
}

void graph_view::pan_by(QPointF pixels)
{
    if (!panned_from_) return;
    drawn_box box = panned_from_->plot();
    box.left -= pixels.x() * points_per_pixel;
    box.top -= pixels.y() * points_per_pixel;
    const std::optional<axis_limits> limits = limits_of_box(*panned_from_, box);
    if (!limits) return;
    views_.back() = *limits;
    redraw();
    emit view_changed();
}

void graph_view::mouseReleaseEvent(QMouseEvent* event)
{
    const gesture ended = gesture_;
    gesture_ = gesture::none;
    const bool is_click = (event->position() - pressed_at_).manhattanLength() < click_distance;
    switch (ended) {
    case gesture::pan:
        panned_from_.reset();
        unsetCursor();
        if (is_click) step_back();
        break;
    case gesture::move_part:
        if (moved_ && moved_->has_moved) {
            end_moving(true);
        } else if (moved_) {
            // A click selects the part for the arrow keys; on a line of the legend it hides or shows a curve.
            if (pressed_part_->entry) {
                end_moving(false);
                toggle_hidden(*pressed_part_->entry);
            } else {
                select_part(moved_->role);
            }
        }
        break;
    case gesture::rubber_band:
        if (is_click) {
            click(page_point(event->position()));
        } else {
            const drawn_point from = page_point(pressed_at_);
            const drawn_point to = page_point(event->position());
            show_box({std::min(from.x, to.x), std::min(from.y, to.y), std::abs(to.x - from.x), std::abs(to.y - from.y)},
                     true);
        }
        break;
    case gesture::none:
        break;
    }
    update();
}

void graph_view::mouseDoubleClickEvent(QMouseEvent* event)
{
    const std::optional<picked_part> part = part_at(drawing(), page_point(event->position()));
    if (!part || part->part.role == drawn_role::legend) return mousePressEvent(event);
    moved_.reset();
    gesture_ = gesture::none;
    update();
    emit edit_asked(part->part.role);
}

void graph_view::click(drawn_point position)
{
    if (!drawing().mapping) return;
    const std::optional<picked_point> near = nearest_point(graph_, drawing(), hidden_, position, snap_distance);
    const axis_mapping& mapping = *drawing().mapping;
    const drawn_point mark = near ? drawn_point{graph_.columns.front().values[near->point],
                                                graph_.columns[near->curve + 1].values[near->point]}
                                  : drawn_point{mapping.x_of(position.x), mapping.y_of(position.y)};
    if (marks_.size() == 2) marks_.clear();
    marks_.push_back(mark);
    tell_position(position);
    update();
    if (near) emit point_clicked(static_cast<int>(near->point));
}

void graph_view::tell_position(drawn_point position)
{
    emit told(drawing().mapping && drawing().plot.contains(position) ? text_at(position) : QString());
}

QString graph_view::text_of(drawn_point at) const
{
    return QStringLiteral("(%1, %2)").arg(number(at.x), number(at.y));
}

QString graph_view::text_at(drawn_point position) const
{
    const axis_mapping& mapping = *drawing_.mapping;
    const drawn_point here = {mapping.x_of(position.x), mapping.y_of(position.y)};
    QString text = QStringLiteral("x = %1   y = %2").arg(number(here.x), number(here.y));
    const std::optional<picked_point> near = nearest_point(graph_, drawing_, hidden_, position, snap_distance);
    drawn_point end = here;
    if (near) {
        end = {graph_.columns.front().values[near->point], graph_.columns[near->curve + 1].values[near->point]};
        text += tr("   %1, point %2: %3")
                    .arg(to_qstring(graph_.columns[near->curve + 1].name))
                    .arg(near->point + 1)
                    .arg(text_of(end));
    }
    if (marks_.empty()) return text;
    if (marks_.size() == 2) end = marks_.back();
    const double dx = end.x - marks_.front().x;
    const double dy = end.y - marks_.front().y;
    text += QStringLiteral("   dx = %1   dy = %2").arg(number(dx), number(dy));
    if (dx != 0.0) text += tr("   slope = %1").arg(number(dy / dx));
    return text;
}

void graph_view::leaveEvent(QEvent*)
{
    if (gesture_ == gesture::none && !moved_) emit told({});
}

void graph_view::wheelEvent(QWheelEvent* event)
{
    event->accept();
    const drawn_point centre = page_point(event->position());
    if (gesture_ != gesture::none || !drawing().mapping || !drawing().plot.contains(centre)) return;
    constexpr double of_notch = 120.0;
    const double factor = std::pow(wheel_factor, -event->angleDelta().y() / of_notch);
    show_box(zoomed_box(drawing().plot, centre, factor), begins_step());
    tell_position(centre);
}

bool graph_view::event(QEvent* event)
{
    // The picture uses keys that are shortcuts elsewhere.
    if (event->type() == QEvent::ShortcutOverride) {
        const int key = static_cast<QKeyEvent*>(event)->key();
        if (key == Qt::Key_Escape && (moved_ || gesture_ != gesture::none)) event->accept();
    }
    return QWidget::event(event);
}

void graph_view::move_by_key(const QKeyEvent& event, QPointF pixels)
{
    constexpr double large_step = 10.0;
    const double step = event.modifiers() & Qt::ShiftModifier ? large_step : 1.0;
    if (moved_) {
        move_to({moved_->corner.x + pixels.x() * step * points_per_pixel,
                 moved_->corner.y + pixels.y() * step * points_per_pixel});
        return;
    }
    drawn_box box = drawing().plot;
    box.left += pixels.x() * box.width * part_of_pan_by_key;
    box.top += pixels.y() * box.height * part_of_pan_by_key;
    show_box(box, begins_step());
}

bool graph_view::begins_step()
{
    constexpr qint64 pause_ms = 700;
    const bool begins = views_.empty() || !since_step_.isValid() || since_step_.elapsed() > pause_ms;
    since_step_.start();
    return begins;
}

void graph_view::keyPressEvent(QKeyEvent* event)
{
    switch (event->key()) {
    case Qt::Key_Left:
        return move_by_key(*event, {-1, 0});
    case Qt::Key_Right:
        return move_by_key(*event, {1, 0});
    case Qt::Key_Up:
        return move_by_key(*event, {0, -1});
    case Qt::Key_Down:
        return move_by_key(*event, {0, 1});
    case Qt::Key_Plus:
    case Qt::Key_Equal:
        return zoom(1.0 / wheel_factor);
    case Qt::Key_Minus:
        return zoom(wheel_factor);
    case Qt::Key_Home:
        return show_all();
    case Qt::Key_Backspace:
        return step_back();
    case Qt::Key_Return:
    case Qt::Key_Enter:
        return end_moving(true);
    case Qt::Key_Space:
        space_held_ = true;
        if (gesture_ == gesture::none) setCursor(Qt::OpenHandCursor);
        return;
    case Qt::Key_Escape:
        if (gesture_ == gesture::pan) step_back();
        gesture_ = gesture::none;
        panned_from_.reset();
        marks_.clear();
        end_moving(false);
        unsetCursor();
        update();
        return;
    default:
        QWidget::keyPressEvent(event);
    }
}

void graph_view::keyReleaseEvent(QKeyEvent* event)
{
    if (event->key() != Qt::Key_Space || event->isAutoRepeat()) return QWidget::keyReleaseEvent(event);
    space_held_ = false;
    if (gesture_ == gesture::none) unsetCursor();
}

void graph_view::focusOutEvent(QFocusEvent* event)
{
    space_held_ = false;
    if (gesture_ == gesture::none) end_moving(true);
    QWidget::focusOutEvent(event);
    update();
}

void graph_view::contextMenuEvent(QContextMenuEvent* event)
{
    emit menu_asked(event->globalPos());
}

} // namespace kelvarin
