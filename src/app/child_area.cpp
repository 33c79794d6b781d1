// SPDX-License-Identifier: MIT
#include "app/child_area.h"

#include "app/background_picture.h"
#include "desktop/look.h"

#include <QAction>
#include <QEvent>
#include <QMdiSubWindow>
#include <QMenu>
#include <QPainter>
#include <QStyle>

#include <algorithm>
#include <optional>

namespace kelvarin
{

namespace
{

child_window* child_of(const QMdiSubWindow* frame)
{
    return frame ? qobject_cast<child_window*>(frame->widget()) : nullptr;
}

/// The menu of a subwindow has its own "Close" with the shortcut of the main window's command; with two actions on one
/// shortcut neither would be triggered.
void give_up_shortcuts(const QMdiSubWindow& frame)
{
    if (!frame.systemMenu()) return;
    const auto actions = frame.systemMenu()->actions();
    for (QAction* action : actions)
        action->setShortcuts(QList<QKeySequence>{});
}

} // namespace

child_area::child_area(QWidget* parent) : QMdiArea(parent), reports_(new report_places(*this))
{
    setHorizontalScrollBarPolicy(Qt::ScrollBarAsNeeded);
    setVerticalScrollBarPolicy(Qt::ScrollBarAsNeeded);
    setAccessibleName(tr("Open windows"));
    take_ground();
    connect(this, &QMdiArea::subWindowActivated, this, &child_area::frame_activated);
}

void child_area::frame_activated(const QMdiSubWindow* frame)
{
    // None is active while the program itself is not; its windows stand as they are.
    if (frame) {
        for (child_window* child : children())
            if (child->parentWidget() != frame) child->set_in_front(false);
        if (child_window* child = child_of(frame)) child->set_in_front(true);
    }
    emit front_changed();
}

void child_area::add(std::unique_ptr<child_window> window, child_window* beside)
{
    child_window* added = window.get();
    QMdiSubWindow* in_front = activeSubWindow();
    const bool alone = subWindowList().isEmpty();
    const bool fills = alone || (in_front && in_front->isMaximized());
    connect(added, &child_window::state_changed, this, [this, added] { emit child_changed(added); });

    // A window that is made smaller moves the keyboard among its controls.
    if (beside) beside->set_in_front(false);
    auto* problem = beside ? qobject_cast<QMdiSubWindow*>(beside->parentWidget()) : nullptr;
    const std::optional<QRect> place =
        problem ? reports_->place_for_report_of(*problem, added->objectName()) : std::nullopt;
    QMdiSubWindow* frame = addSubWindow(window.release());
    frame->setWindowIcon(added->windowIcon());
    give_up_shortcuts(*frame);
    if (problem) reports_->add(*frame, *problem);
    if (place) {
        frame->setGeometry(*place);
        frame->show();
    } else if (fills) {
        frame->showMaximized();
    } else {
        frame->resize(frame->sizeHint().boundedTo(viewport()->size()));
        frame->show();
    }
    setActiveSubWindow(frame);
    // Also if the main window is not active yet.
    added->setFocus(Qt::OtherFocusReason);
}

void child_area::bring_to_front(child_window& window)
{
    auto* frame = qobject_cast<QMdiSubWindow*>(window.parentWidget());
    if (!frame) return;
    if (frame->isMinimized()) frame->showNormal();
    frame->show();
    setActiveSubWindow(frame);
}

child_window* child_area::front() const
{
    if (child_window* active = child_of(activeSubWindow())) return active;
    return child_of(currentSubWindow());
}

std::vector<child_window*> child_area::children() const
{
    std::vector<child_window*> all;
    for (const QMdiSubWindow* frame : subWindowList(CreationOrder))
        if (child_window* child = child_of(frame)) all.push_back(child);
    return all;
}

QList<QMdiSubWindow*> child_area::shown_frames(WindowOrder order, QRect& area) const
{
    QList<QMdiSubWindow*> shown;
    area = viewport()->rect();
    for (QMdiSubWindow* frame : subWindowList(order)) {
        if (!frame->isMinimized())
            shown.append(frame);
        else
            area.setBottom(std::min(area.bottom(), frame->y() - 1));
    }
    return shown;
}

void child_area::tile(tiling_direction direction)
{
    QMdiSubWindow* in_front = activeSubWindow();
    QRect area;
    const QList<QMdiSubWindow*> shown = shown_frames(CreationOrder, area);
    put(shown, tiled_areas(area, static_cast<int>(shown.size()), direction));
    setActiveSubWindow(in_front);
}

void child_area::cascade()
{
    QMdiSubWindow* in_front = activeSubWindow();
    QRect area;
    // The active window comes last, on top of the others.
    const QList<QMdiSubWindow*> shown = shown_frames(StackingOrder, area);
    const int title_height = style()->pixelMetric(QStyle::PM_TitleBarHeight, nullptr, this) +
                             style()->pixelMetric(QStyle::PM_MdiSubWindowFrameWidth, nullptr, this);
    put(shown, cascaded_areas(area, static_cast<int>(shown.size()), title_height));
    for (QMdiSubWindow* frame : shown)
        frame->raise();
    setActiveSubWindow(in_front);
}

void child_area::put(const QList<QMdiSubWindow*>& frames, const QList<QRect>& places)
{
    for (qsizetype i = 0; i < frames.size(); ++i) {
        frames[i]->showNormal();
        frames[i]->setGeometry(places[i]);
    }
}

void child_area::arrange_icons()
{
    const QRect area = viewport()->rect();
    QPoint corner = area.bottomLeft();
    for (QMdiSubWindow* frame : subWindowList(CreationOrder)) {
        if (!frame->isMinimized()) continue;
        if (corner.x() > area.left() && corner.x() + frame->width() > area.right())
            corner = QPoint(area.left(), corner.y() - frame->height());
        frame->move(corner.x(), corner.y() - frame->height() + 1);
        corner.rx() += frame->width();
    }
}

void child_area::show_background_picture(bool shown)
{
    background_picture_ = shown;
    viewport()->update();
}

void child_area::paintEvent(QPaintEvent* event)
{
    QMdiArea::paintEvent(event);
    if (!background_picture_) return;
    QPainter painter(viewport());
    paint_background_picture(painter, viewport()->rect(), palette());
}

void child_area::changeEvent(QEvent* event)
{
    QMdiArea::changeEvent(event);
    if (event->type() == QEvent::PaletteChange) take_ground();
}

void child_area::take_ground()
{
    setBackground(ground_colour(palette()));
}

} // namespace kelvarin
