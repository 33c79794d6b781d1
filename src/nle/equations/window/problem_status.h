// SPDX-License-Identifier: MIT
#pragma once

#include "desktop/traffic_light.h"

#include <QLabel>
#include <QTimer>
#include <QWidget>

#include <array>
#include <string>
#include <vector>

namespace kelvarin
{

class link_label;

/// The three panels below a problem; the names in the third are links. In a narrow window they stand on several lines.
class problem_status : public QWidget
{
    Q_OBJECT

public:
    explicit problem_status(QWidget* parent = nullptr);

    /// `names` are the names in panel 3 that become links.
    void show_panels(const std::array<std::string, 3>& texts, const std::vector<std::string>& names);
    /// The full text of a panel (from 1), before it is elided or turned into links.
    QString panel_text(int panel) const;
    /// Shows a text beside the panels for some seconds.
    void show_notice(const QString& text);

signals:
    void name_clicked(const QString& name);

private:
    std::array<QLabel*, 2> counts_{};
    link_label* message_ = nullptr;
    QLabel* notice_ = nullptr;
    QTimer notice_timer_;
};

} // namespace kelvarin
