// SPDX-License-Identifier: MIT
#pragma once

#include <QLabel>

namespace kelvarin
{

/// A line of text in whatever room there is: what does not fit is left out at the end, and the tool tip then has
/// it whole.
class elided_label : public QLabel
{
    Q_OBJECT

public:
    explicit elided_label(QWidget* parent = nullptr);

    /// The text is never read as markup.
    void show_text(const QString& text);
    const QString& whole_text() const { return whole_text_; }

    QSize minimumSizeHint() const override;

protected:
    void resizeEvent(QResizeEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    void show_what_fits();

    QString whole_text_;
};

} // namespace kelvarin
