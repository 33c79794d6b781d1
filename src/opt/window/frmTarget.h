// SPDX-License-Identifier: MIT
#pragma once

#include "desktop/desktop_context.h"
#include "graph/window/drawing_painter.h"
#include "opt/opt_map.h"

#include <QDialog>

namespace kelvarin
{

/// Shows the contours of a target of two variables and the way of a run. It deletes itself when it is closed.
class frmTarget : public QDialog
{
    Q_OBJECT

public:
    frmTarget(desktop_context& context, QWidget* parent, opt_map map);

    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;

private:
    drawn_picture picture() const;
    void copy_picture();

    desktop_context& context_;
    opt_map map_;
    toolkit_metrics metrics_;
};

} // namespace kelvarin
