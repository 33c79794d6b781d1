// SPDX-License-Identifier: MIT
#pragma once

#include <QLabel>
#include <QWidget>

namespace kelvarin
{

/// The traffic light: a lamp and a word beside it ("ready", "not ready", "solving"), also as accessible text.
class traffic_light : public QWidget
{
    Q_OBJECT

public:
    explicit traffic_light(QWidget* parent = nullptr);

    /// `why` is the tool tip: what is missing, or that the problem may run.
    void set_green(bool green, const QString& why);
    bool is_green() const { return green_; }
    /// During a run the word is "solving".
    void set_solving(bool solving);

protected:
    void changeEvent(QEvent* event) override;

private:
    void show_lamp();
    void show_word();

    QLabel* imgTraffic_ = nullptr;
    QLabel* lblTraffic_ = nullptr;
    bool green_ = false;
    bool solving_ = false;
};

} // namespace kelvarin
