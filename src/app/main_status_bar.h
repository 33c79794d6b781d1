// SPDX-License-Identifier: MIT
#pragma once

#include <QStatusBar>

class QAction;
class QProgressBar;
class QToolButton;

namespace kelvarin
{

class elided_label;

/// The main window's status bar: the panels of the window in front (file, title), and how far its run is.
class main_status_bar : public QStatusBar
{
    Q_OBJECT

public:
    main_status_bar(QAction* stop, QWidget* parent);

    void show_panels(const QString& file, const QString& title);
    /// Progress and Stop are there only while a run is under way.
    void show_run(bool running);
    /// How far a run is, as a part of the whole; more than the whole counts as the whole.
    void show_fraction(double fraction);

private:
    elided_label* file_ = nullptr;
    elided_label* title_ = nullptr;
    QProgressBar* prgMain_ = nullptr;
    QToolButton* stop_ = nullptr;
};

} // namespace kelvarin
