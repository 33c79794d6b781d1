// SPDX-License-Identifier: MIT
#pragma once

#include <QLabel>
#include <QTimer>
#include <QWidget>

namespace kelvarin
{

/// The splash: the program's name and version, for a moment or until it is clicked. It waits for nothing and
/// nothing waits for it; it deletes itself when it closes.
class frmStartup : public QWidget
{
    Q_OBJECT

public:
    explicit frmStartup(QWidget* main_window);

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void build_ui();

    QLabel* Picture1_ = nullptr;
    QTimer* tmrStartup_ = nullptr;
};

} // namespace kelvarin
