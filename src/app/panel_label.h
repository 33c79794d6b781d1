// SPDX-License-Identifier: MIT
#pragma once

#include <QLabel>

namespace kelvarin
{

/// A line of text in whatever room there is: what does not fit is left out at the end, and the tool tip has it whole.
class panel_label : public QLabel
{
    Q_OBJECT

public:
    explicit panel_label(QWidget* parent);

    void show_text(const QString& text);
    const QString& whole_text() const { return whole_text_; }

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

protected:
    void resizeEvent(QResizeEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    void fit();

    QString whole_text_;
};

} // namespace kelvarin
