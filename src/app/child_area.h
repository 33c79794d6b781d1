// SPDX-License-Identifier: MIT
#pragma once

#include "app/report_places.h"
#include "app/window_tiles.h"
#include "desktop/child_window.h"

#include <QMdiArea>

#include <memory>
#include <vector>

class QMdiSubWindow;

namespace kelvarin
{

/// The area of the main window that contains its children, and their arrangement.
class child_area : public QMdiArea
{
    Q_OBJECT

public:
    explicit child_area(QWidget* parent);

    /// Takes ownership of a window and makes it active: the first one fills the area, later ones do if the active one
    /// does; with `beside` it is placed beside the active one if there is space for two.
    void add(std::unique_ptr<child_window> window, child_window* beside);
    /// Activates a window, restoring it if it was minimised.
    void bring_to_front(child_window& window);

    /// The active window; null if there is none.
    child_window* front() const;
    /// In the order of their creation.
    std::vector<child_window*> children() const;

    void tile(tiling_direction direction);
    /// Overlapping in stacking order, so that all titles are visible.
    void cascade();
    /// Arranges the minimised windows along the lower edge.
    void arrange_icons();

    void show_background_picture(bool shown);

signals:
    void front_changed();
    /// The menus, panels or commands of a child have changed.
    void child_changed(kelvarin::child_window* window);

protected:
    void paintEvent(QPaintEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    /// The frames that are not minimised in the given order, and the part of the area above the minimised ones.
    QList<QMdiSubWindow*> shown_frames(WindowOrder order, QRect& area) const;
    static void put(const QList<QMdiSubWindow*>& frames, const QList<QRect>& places);
    void frame_activated(const QMdiSubWindow* frame);
    void take_ground();

    report_places* reports_;
    bool background_picture_ = false;
};

} // namespace kelvarin
