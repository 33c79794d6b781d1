// SPDX-License-Identifier: MIT
#pragma once

#include "platform/message_box.h"

#include <QPlainTextEdit>
#include <QStringList>
#include <QTimer>

#include <optional>
#include <string>
#include <string_view>
#include <vector>

class QAbstractItemView;
class QCompleter;
class QStringListModel;

namespace kelvarin
{

class expression_highlighter;

/// A field for an expression: at least three lines tall, in a fixed-width font, functions and keywords tinted, with
/// completion of names (functions, and the names of set_names): automatic from the second character on, with Ctrl+Space
/// from the first. Tab leaves the field. Enter emits done_asked while the text has one line, Shift+Enter breaks the
/// line; in a text of several lines Enter breaks it as well, and Ctrl+Enter emits done_asked.
class expression_edit : public QPlainTextEdit
{
    Q_OBJECT

public:
    explicit expression_edit(QWidget* parent = nullptr);

    /// The text with blanks for line ends and tabs.
    std::string expression() const;
    void set_expression(std::string_view text);
    /// Makes it a field of one line without a frame, for a cell of a grid: Enter always emits done_asked.
    void set_one_line();
    /// Sets the variables that completion offers in addition to the functions.
    void set_names(const QStringList& names);
    /// Underlines a range of bytes of expression(). The mark is removed by nullopt and by the next change of the text.
    void mark_place(const std::optional<text_place>& place);
    /// Underlines the names that nothing defines, as ranges of bytes of expression(), until the next call.
    void mark_undefined(std::vector<text_place> places);
    /// Marks a place as above, and selects the range, so that typing replaces it.
    void select_place(const text_place& place);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

signals:
    void done_asked();
    /// Emitted a third of a second after the last change of the text.
    void paused();

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void insertFromMimeData(const QMimeData* source) override;
    void changeEvent(QEvent* event) override;
    void hideEvent(QHideEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void build_completer();
    bool is_completing() const;
    void stop_completing();
    QString name_before_caret() const;
    void offer_completions(int letters_at_least);
    void complete(const QString& name);
    void text_changed();
    QTextCursor cursor_at(const text_place& place) const;
    void show_marks();

    expression_highlighter* highlighter_;
    QCompleter* completer_ = nullptr;
    QAbstractItemView* list_ = nullptr;
    QStringListModel* offered_ = nullptr;
    QTimer pause_;
    QString text_before_;
    std::optional<text_place> mark_;
    std::vector<text_place> undefined_;
    bool one_line_ = false;
};

} // namespace kelvarin
