// SPDX-License-Identifier: MIT
#pragma once

#include "graph/window/drawing_painter.h"
#include "reg/analysis_drawing.h"

#include <QWidget>

#include <vector>

namespace kelvarin
{

/// The small picture of the analysis: its points, the curves through them, and the place that was asked for.
class analysis_plot : public QWidget
{
    Q_OBJECT

public:
    explicit analysis_plot(QWidget* parent = nullptr);

    /// Sorted points without equal x; fewer than two are not drawn.
    void show_points(const analysis_points& points, const std::string& x_name, const std::string& y_name);
    void show_marks(std::vector<double> marked);
    const std::vector<double>& marks() const { return marked_; }
    bool is_empty() const { return points_.n() < 2; }

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    analysis_points points_;
    graph_content graph_;
    std::vector<double> marked_;
    toolkit_metrics metrics_;
};

} // namespace kelvarin
