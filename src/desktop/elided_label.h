// SPDX-License-Identifier: MIT
#pragma once

#include <QLabel>

namespace kelvarin
{

/// A line of text that is elided at its end if it doesn't fit; the tool tip then has the whole text.
class elided_label : public QLabel
{
    Q_OBJECT

public:
    explicit elided_label(QWidget* parent = nullptr);

    /// Sets a plain text, never interpreted as markup.
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
