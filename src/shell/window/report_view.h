// SPDX-License-Identifier: MIT
#pragma once

#include "shell/report/styled_text.h"
#include "shell/window/report_filler.h"

#include <QTextBrowser>
#include <QTimer>

#include <optional>
#include <vector>

namespace kelvarin
{

/// Shows styled lines on a sheet of white paper on a background in the palette's tone, at any zoom. The sheet has a
/// width that is comfortable to read, and more only if the rows of a table need it. The first screens of a long text
/// are there at once, and the rest follows while the window works on.
class report_view : public QTextBrowser
{
    Q_OBJECT

public:
    explicit report_view(QWidget* parent = nullptr);

    void set_lines(std::vector<styled_line> lines);
    const std::vector<styled_line>& lines() const { return lines_; }
    /// Whether all of the text is there.
    bool is_filled() const { return !filler_ || filler_->at_end(); }
    /// The selected lines; empty if there is no selection. What is selected up to the end of what is there goes up to
    /// the end of the text.
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
    /// What is in sight and selected, as positions in the document.
    struct view_place
    {
        int top = 0;
        int anchor = 0;
        int position = 0;
        bool at_start = true;
    };

    void fill();
    void fill_on();
    view_place present_place() const;
    /// Goes back to a place as soon as the text reaches to it.
    void go_back_to(const view_place& place);
    void lay_out_sheet();
    /// Places the sheet in the window.
    QTextFrameFormat sheet_format();
    void apply_palette();
    int ground() const;

    std::vector<styled_line> lines_;
    double zoom_ = 1.0;
    std::optional<document_filler> filler_;
    QTimer fill_timer_;
    std::optional<view_place> wanted_place_;
    double widest_row_ = 0.0;
    double sheet_left_ = 0.0;
    double sheet_width_ = 0.0;
    int wheel_travel_ = 0;
    bool applying_palette_ = false;
};

} // namespace kelvarin
