// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>

#include <functional>

class QLineEdit;
class QWidget;

namespace kelvarin
{

/// Handles the keys of a search field: Down moves the focus to the results, Return takes the first result.
class search_keys : public QObject
{
    Q_OBJECT

public:
    search_keys(QLineEdit& field, QWidget& found, std::function<void()> take_first);

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    QWidget& found_;
    std::function<void()> take_first_;
};

} // namespace kelvarin
