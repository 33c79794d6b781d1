// SPDX-License-Identifier: MIT
#pragma once

#include <QLabel>
#include <QTimer>
#include <QWidget>

namespace kelvarin
{

/// The splash screen: the program's name and version, shown for a moment or until it is clicked. It doesn't delay the
/// start; it deletes itself when it closes.
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
