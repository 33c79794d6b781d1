// SPDX-License-Identifier: MIT
#pragma once

#include "desktop/desktop_context.h"

#include <QObject>
#include <QPointer>
#include <QWidget>

#include <map>

namespace kelvarin
{

class frmHelp;

/// The windows beside the main window, one of each: calculator, units, constants, Antoine equation, settings, help.
/// They are made when first needed, at the position where they were last shown.
class tool_windows : public QObject
{
    Q_OBJECT

public:
    explicit tool_windows(desktop_context& context);
    ~tool_windows() override;

    /// Shows a tool in front.
    void show(window_command tool);
    void hide_all();
    /// The help, after it was shown.
    frmHelp* help() const;

signals:
    void settings_changed();
    /// A file of the examples is to be opened.
    void example_asked(const QString& file);

private:
    QWidget* make(window_command tool);
    void close_by_key(QWidget& window);

    desktop_context& context_;
    std::map<window_command, QPointer<QWidget>> windows_;
};

} // namespace kelvarin
