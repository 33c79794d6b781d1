// SPDX-License-Identifier: MIT
#pragma once

#include "graph/graph_content.h"
#include "graph/graph_drawing.h"
#include "graph/graph_picking.h"
#include "graph/window/drawing_painter.h"

#include <QElapsedTimer>
#include <QImage>
#include <QWidget>

#include <optional>
#include <vector>

namespace kelvarin
{

/// The picture `PicGraph`: shows a graph and everything by which it is looked at without being changed - a part of it,
/// logarithmic axes, hidden curves, values at the pointer. Titles and legend are moved in it.
///
/// The wheel zooms about the pointer, a rubber band zooms to a part, the middle button or Space pans. A click marks a
/// point from which the next one measures.
class graph_view : public QWidget
{
    Q_OBJECT

public:
    explicit graph_view(QWidget* parent = nullptr);

    void show_graph(const graph_content& graph);

    /// What is drawn now.
    const graph_drawing& drawing();
    /// How the graph is looked at, for pictures and print.
    drawing_options looks() const;
    /// The size of the picture in twips, to which positions of titles and legend refer.
    graph_size size_in_twips() const;

    void zoom(double factor);
    /// The view before, and that of the graph's own limits.
    void step_back();
    void show_all();
    bool is_zoomed() const { return !views_.empty(); }

    void set_scales(axis_scales scales);
    axis_scales scales() const { return scales_; }
    bool is_hidden(drawn_part part) const;
    void toggle_hidden(drawn_part part);
    void set_style(drawn_part part, const curve_style& style);
    /// Forgets how curves were looked at by their numbers, which have changed.
    void forget_parts();
    /// The style in which a curve or function is drawn.
    curve_style style_of(drawn_part part) const;

    /// Selects a title or the legend for the arrow keys.
    void select_part(drawn_role role);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

signals:
    /// What is to be said of the pointer's position or of the selected part; empty outside the plot area.
    void told(const QString& text);
    void part_moved(kelvarin::drawn_role role, kelvarin::graph_place place);
    void edit_asked(kelvarin::drawn_role role);
    /// The displayed part of the graph or its axes have changed.
    void view_changed();
    /// Styles or hidden curves have changed.
    void style_changed();
    void menu_asked(const QPoint& global_position);
    /// The graph can not be drawn, as no limit foretold; once for each graph shown.
    void drawing_failed(const QString& reason);
    /// A point of a curve, from 0, was clicked.
    void point_clicked(int point);

protected:
    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void leaveEvent(QEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void keyReleaseEvent(QKeyEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;

private:
    enum class gesture
    {
        none,
        /// A title or the legend is moved by the mouse.
        move_part,
        rubber_band,
        pan
    };

    struct moved_part
    {
        drawn_role role{};
        /// The upper left corner, in points.
        drawn_point corner;
        bool has_moved = false;
    };

    drawn_point page_point(QPointF position) const;
    QPointF widget_point(drawn_point point) const;
    void redraw();
    void paint_graph();
    void paint_marks(QPainter& painter);
    void show_box(const drawn_box& box, bool as_step);
    void pan_by(QPointF pixels);
    void move_to(drawn_point corner);
    /// Whether zooming by wheel or keys is a step of its own: not if it goes on.
    bool begins_step();
    void move_by_key(const QKeyEvent& event, QPointF pixels);
    /// Ends moving: `keep` tells the new position, otherwise the old one is restored.
    void end_moving(bool keep);
    void click(drawn_point position);
    void tell_position(drawn_point position);
    QString text_at(drawn_point position) const;
    QString text_of(drawn_point at) const;

    graph_content graph_;
    toolkit_metrics metrics_;
    graph_drawing drawing_;
    QImage picture_;
    bool is_drawn_ = false;
    bool has_failed_ = false;

    /// The parts that were zoomed to, the latest one last.
    std::vector<axis_limits> views_;
    QElapsedTimer since_step_;
    axis_scales scales_;
    std::vector<drawn_part> hidden_;
    std::vector<std::pair<drawn_part, curve_style>> styles_;

    gesture gesture_ = gesture::none;
    QPointF pressed_at_;
    QPointF now_at_;
    std::optional<picked_part> pressed_part_;
    std::optional<moved_part> moved_;
    bool space_held_ = false;
    /// The limits when panning began.
    std::optional<axis_mapping> panned_from_;
    /// The points between which is measured, in values of the axes: at most two.
    std::vector<drawn_point> marks_;
};

} // namespace kelvarin
