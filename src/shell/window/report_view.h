// SPDX-License-Identifier: MIT
#pragma once

#include "shell/report/styled_text.h"

#include <QTextBrowser>

#include <vector>

namespace kelvarin
{

/// Shows styled lines on a sheet of white paper that lies on a ground in the palette's tone, at any zoom. The
/// sheet is as wide as one likes to read, and wider only where the rows of a table need it.
class report_view : public QTextBrowser
{
    Q_OBJECT

public:
    explicit report_view(QWidget* parent = nullptr);

    void set_lines(std::vector<styled_line> lines);
    const std::vector<styled_line>& lines() const { return lines_; }
    /// What is marked; empty where nothing is.
    std::vector<styled_line> marked_lines() const;

    double zoom() const { return zoom_; }
    /// Keeps what is at the top, and what is marked.
    void set_zoom(double zoom);
    /// To the next of the usual steps.
    void step_zoom(bool larger);

    QSize sizeHint() const override;

signals:
    /// The keys or the menu of the box asked for it.
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
