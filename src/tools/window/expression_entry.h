// SPDX-License-Identifier: MIT
#pragma once

#include "expr/basParse.h"

#include <QTextEdit>

#include <optional>
#include <string>

namespace kelvarin
{

/// The field in which lines are typed. Keys that solve or recall lines are emitted as signals.
class expression_entry : public QTextEdit
{
    Q_OBJECT

public:
    explicit expression_entry(QWidget* parent);

    /// The effect of Return alone: solve, or begin a new line. Ctrl+Return always solves, Shift+Return never does.
    void set_return_solves(bool solves) { return_solves_ = solves; }

    /// The text in UTF-8.
    std::string expression() const;
    /// Replaces the whole text, as one step of undo, and puts the caret at its end.
    void replace_expression(const std::string& text);
    /// Replaces the selection by a text and puts the caret `back` characters before its end.
    void insert_at_caret(const QString& text, int back);
    /// Underlines a range of bytes of the text; nullopt removes the line.
    void mark_fault(const std::optional<byte_range>& place);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return sizeHint(); }

signals:
    void solve_requested();
    void earlier_requested();
    void later_requested();

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void insertFromMimeData(const QMimeData* source) override;

private:
    bool is_single_line() const;

    bool return_solves_ = true;
};

} // namespace kelvarin
