// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>
#include <QWidget>

#include <filesystem>
#include <vector>

class QDropEvent;

namespace kelvarin
{

/// Opens files that are dropped anywhere on a window, including its text fields, which would insert their names.
class file_drop : public QObject
{
    Q_OBJECT

public:
    explicit file_drop(QWidget& window);

    bool eventFilter(QObject* watched, QEvent* event) override;

signals:
    void dropped(const std::vector<std::filesystem::path>& files);

private:
    bool takes(QDropEvent& event);

    QWidget& window_;
};

} // namespace kelvarin
