// SPDX-License-Identifier: MIT
#pragma once

#include "expr/basParse.h"

#include <QTextEdit>

#include <optional>
#include <string>

namespace kelvarin
{

/// The field in which lines are typed. The keys that mean more than text become signals.
class expression_entry : public QTextEdit
{
    Q_OBJECT

public:
    explicit expression_entry(QWidget* parent);

    /// What Return alone does: solve, or begin a new line. With Ctrl it always solves, with Shift it never does.
    void set_return_solves(bool solves) { return_solves_ = solves; }

    /// The text in UTF-8.
    std::string expression() const;
    /// Puts a text in place of the present one, as one step of undo, with the caret behind it.
    void replace_expression(const std::string& text);
    /// Puts a text in place of the selection, and the caret `back` letters in front of its end.
    void insert_at_caret(const QString& text, int back);
    /// Underlines a range of bytes of the text; nothing takes the line away.
    void mark_fault(const std::optional<byte_range>& place);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return sizeHint(); }

signals:
    void solve_requested();
    void earlier_requested();
    void later_requested();

protected:
    void keyPressEvent(QKeyEvent* event) override;

private:
    bool is_single_line() const;

    bool return_solves_ = true;
};

} // namespace kelvarin
