// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>

class QApplication;

namespace kelvarin
{

/// Sets the accent colour of selections and links for all windows, also when the desktop changes between light and
/// dark.
class accent_keeper : public QObject
{
    Q_OBJECT

public:
    explicit accent_keeper(QApplication& application);

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void apply();
};

} // namespace kelvarin
