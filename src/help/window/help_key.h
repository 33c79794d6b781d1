// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>

#include <functional>

namespace kelvarin
{

/// Hears F1 in the windows beside the main window, whose own action answers it there: in tools, dialogs and the help
/// itself. A box that shuts off all windows would shut off the help too, so it keeps the key.
class help_key : public QObject
{
    Q_OBJECT

public:
    help_key(QObject& parent, std::function<void()> show_help);

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    std::function<void()> show_help_;
};

} // namespace kelvarin
