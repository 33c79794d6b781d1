// SPDX-License-Identifier: MIT
#pragma once

#include "shell/report/styled_text.h"

#include <QTextBrowser>

#include <vector>

namespace kelvarin
{

/// Shows styled lines on a sheet of white paper on a background in the palette's tone, at any zoom. The sheet has a
/// width that is comfortable to read, and more only if the rows of a table need it.
class report_view : public QTextBrowser
{
    Q_OBJECT

public:
    explicit report_view(QWidget* parent = nullptr);

    void set_lines(std::vector<styled_line> lines);
    const std::vector<styled_line>& lines() const { return lines_; }
    /// The selected lines; empty if there is no selection.
    std::vector<styled_line> marked_lines() const;

    double zoom() const { return zoom_; }
    /// Keeps the scroll position and the selection.
    void set_zoom(double zoom);
    /// Zooms to the next of the standard steps.
    void step_zoom(bool larger);

    QSize sizeHint() const override;

signals:
    /// Copying was requested by key or menu.
    void copy_asked();
    void menu_asked(const QPoint& global_position);
    void zoom_changed();

protected:
    bool event(QEvent* event) override;
    void changeEvent(QEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    QMimeData* createMimeDataFromSelection() const override;

private:
    void fill();
    void lay_out_sheet();
    void apply_palette();
    int ground() const;

    std::vector<styled_line> lines_;
    double zoom_ = 1.0;
    double widest_row_ = 0.0;
    double sheet_left_ = 0.0;
    double sheet_width_ = 0.0;
    int wheel_travel_ = 0;
    bool applying_palette_ = false;
};

} // namespace kelvarin
