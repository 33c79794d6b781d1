// SPDX-License-Identifier: MIT
#pragma once

#include <QLabel>

namespace kelvarin
{

/// A caption that is a link as a whole, by mouse and by keyboard.
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
