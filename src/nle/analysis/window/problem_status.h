// SPDX-License-Identifier: MIT
#pragma once

#include <QLabel>
#include <QStatusBar>
#include <QStringList>
#include <QWidget>

#include <array>
#include <string>
#include <vector>

namespace kelvarin
{

/// The traffic light: a lamp and a word beside it ("ready", "not ready"), which is also spoken.
class traffic_light : public QWidget
{
    Q_OBJECT

public:
    explicit traffic_light(QWidget* parent = nullptr);

    /// `why` is the tool tip: what is missing, or that the problem may run.
    void set_green(bool green, const QString& why);
    bool is_green() const { return green_; }

private:
    QLabel* imgTraffic_ = nullptr;
    QLabel* lblTraffic_ = nullptr;
    bool green_ = false;
};

/// The three panels of a problem's status; the names in the third are links.
class problem_status : public QStatusBar
{
    Q_OBJECT

public:
    explicit problem_status(QWidget* parent = nullptr);

    /// `names` are those that stand in panel 3 and become links.
    void show_panels(const std::array<std::string, 3>& texts, const std::vector<std::string>& names);

signals:
    void name_clicked(const QString& name);

private:
    std::array<QLabel*, 3> panels_{};
};

} // namespace kelvarin
