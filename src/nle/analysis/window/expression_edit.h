// SPDX-License-Identifier: MIT
#pragma once

#include "platform/message_box.h"

#include <QPlainTextEdit>
#include <QStringList>

#include <string>

namespace kelvarin
{

/// A field for an expression: three lines tall, fixed-width, functions and keywords tinted, names completed
/// (functions, and what set_names told). Tab leaves it; Ctrl+Enter reports done_asked.
class expression_edit : public QPlainTextEdit
{
    Q_OBJECT

public:
    explicit expression_edit(QWidget* parent = nullptr);

    /// The text with line ends and tabs as blanks.
    std::string expression() const;
    void set_expression(std::string_view text);
    /// The variables that completion offers, beside the functions.
    void set_names(const QStringList& names);
    /// Underlines a range of bytes of expression() and puts the caret there; nothing removes the mark.
    void mark_place(const std::optional<text_place>& place);

signals:
    void done_asked();
    /// A third of a second after the last change of the text.
    void paused();
};

} // namespace kelvarin
