// SPDX-License-Identifier: MIT
#pragma once

#include <QLabel>

namespace kelvarin
{

/// A caption that is entirely a link, reachable by mouse and keyboard.
class link_text : public QLabel
{
    Q_OBJECT

public:
    link_text(const QString& caption, QWidget* parent);

signals:
    void clicked();

protected:
    void focusInEvent(QFocusEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    void show_caption();

    QString caption_;
};

} // namespace kelvarin
