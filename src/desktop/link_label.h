// SPDX-License-Identifier: MIT
#pragma once

#include <QLabel>
#include <QString>
#include <QStringList>

#include <vector>

namespace kelvarin
{

/// A line of text in which names are links, reachable by mouse and keyboard. A text that doesn't fit is elided, and the
/// tool tip then has the whole text.
class link_label : public QLabel
{
    Q_OBJECT

public:
    explicit link_label(QWidget* parent = nullptr);

    /// Turns the names, in their order, into links where they occur after the first ": " of the text.
    void show_text(const QString& text, const QStringList& names);
    const QString& whole_text() const { return text_; }

signals:
    void name_clicked(const QString& name);

protected:
    void focusInEvent(QFocusEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    struct piece
    {
        QString text;
        /// Index of the name in the list; -1 for text that is not a link.
        qsizetype link = -1;
    };

    static std::vector<piece> pieces_of(const QString& text, const QStringList& names);
    QString markup_of(const piece& shown) const;
    void show_what_fits();

    QString text_;
    QStringList names_;
    std::vector<piece> pieces_;
};

} // namespace kelvarin
