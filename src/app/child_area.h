// SPDX-License-Identifier: MIT
#pragma once

#include "app/window_tiles.h"
#include "desktop/child_window.h"

#include <QMdiArea>

#include <memory>
#include <vector>

class QMdiSubWindow;

namespace kelvarin
{

/// The part of the main window in which its children stand, and how they are laid out.
class child_area : public QMdiArea
{
    Q_OBJECT

public:
    explicit child_area(QWidget* parent);

    /// Takes a window over and brings it to the front: the first one fills the area, the next are as large as the
    /// one in front where that fills it; `beside` puts it beside the one in front, where there is room for two.
    void add(std::unique_ptr<child_window> window, bool beside);
    /// Brings a window to the front, restored where it was minimised.
    void bring_to_front(child_window& window);

    /// The window in front; null where there is none.
    child_window* front() const;
    /// In the order in which they came.
    std::vector<child_window*> children() const;

    void tile(tiling direction);
    /// One behind the other, in the order in which they were in front, so that all titles are seen.
    void cascade();
    /// Lines up the minimised windows along the lower edge.
    void arrange_icons();

    void show_background_picture(bool shown);

signals:
    void front_changed();
    /// What a child tells of itself has changed.
    void child_changed(kelvarin::child_window* window);

protected:
    void paintEvent(QPaintEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    /// Two places side by side where two windows can be used at once; makes room for the second one.
    bool make_room_beside(QMdiSubWindow& in_front, QRect& place);
    /// The frames that are not minimised, and the part of the area that those leave free.
    QList<QMdiSubWindow*> shown_frames(WindowOrder order, QRect& area) const;
    static void put(const QList<QMdiSubWindow*>& frames, const QList<QRect>& places);
    void take_ground();

    bool background_picture_ = false;
};

} // namespace kelvarin
