// SPDX-License-Identifier: MIT
#pragma once

#include "tools/calculator_history.h"

#include <QPoint>
#include <QTextEdit>

#include <vector>

namespace kelvarin
{

/// The solved lines in their colours, oldest first, aligned to the lower edge like a transcript. Copied text is plain.
class history_view : public QTextEdit
{
    Q_OBJECT

public:
    explicit history_view(QWidget* parent);

    void show_entries(const std::vector<history_entry>& entries);
    void add_entry(const history_entry& entry);

    QString selected_text() const;
    /// All entries, one per line.
    QString whole_text() const;

signals:
    /// An entry (from 0) was clicked, or Return pressed on it.
    void entry_chosen(int entry);
    void copy_requested();

protected:
    void changeEvent(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    QMimeData* createMimeDataFromSelection() const override;

private:
    void write(const history_entry& entry);
    void recolour();
    void stand_on_lower_edge();
    void scroll_to_end();

    std::vector<history_entry> entries_;
    QPoint pressed_at_;
};

} // namespace kelvarin
