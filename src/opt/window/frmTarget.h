// SPDX-License-Identifier: MIT
#pragma once

#include "desktop/desktop_context.h"
#include "graph/window/graph_picture.h"
#include "opt/opt_map.h"

#include <QDialog>

namespace kelvarin
{

/// Shows the contours of a target of two variables and the way of a run; the picture can be copied, saved and printed.
/// It deletes itself when it is closed.
class frmTarget : public QDialog
{
    Q_OBJECT

public:
    frmTarget(desktop_context& context, QWidget* parent, opt_map map);

private:
    void build_ui();
    picture_drawer drawer() const;
    /// The picture's size in the window.
    picture_size shown_size() const;
    void cmdCopy_Click();
    void cmdSave_Click();
    void cmdPrint_Click();

    desktop_context& context_;
    opt_map map_;
    QWidget* PicTarget_ = nullptr;
};

} // namespace kelvarin
