// SPDX-License-Identifier: MIT
#pragma once

#include <QStatusBar>
#include <QTimer>

class QAction;
class QFrame;
class QProgressBar;
class QToolButton;

namespace kelvarin
{

class elided_label;

/// The main window's status bar: the panels of the active window (file, title), and the progress of its run.
class main_status_bar : public QStatusBar
{
    Q_OBJECT

public:
    main_status_bar(QAction* stop, QWidget* parent);

    void show_panels(const QString& file, const QString& title);
    /// Says a text in place of the panels for half a minute.
    void say(const QString& text);
    bool is_saying() const { return speech_timer_.isActive(); }
    /// Progress and Stop are shown only during a run.
    void show_run(bool running);
    /// Shows the progress from 0 to 1; larger values count as 1.
    void show_fraction(double fraction);

signals:
    /// What was said is shown no longer.
    void has_said();

private:
    void show_speech(bool shown);

    elided_label* file_ = nullptr;
    QFrame* line_ = nullptr;
    elided_label* title_ = nullptr;
    elided_label* speech_ = nullptr;
    QTimer speech_timer_;
    QProgressBar* prgMain_ = nullptr;
    QToolButton* stop_ = nullptr;
};

} // namespace kelvarin
