// SPDX-License-Identifier: MIT
#pragma once

#include "desktop/desktop_context.h"
#include "desktop/expression_edit.h"
#include "nle/equations/equation_rows.h"

#include <QDialog>
#include <QFormLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTimer>

#include <optional>
#include <string>

namespace kelvarin
{

/// The object names of a dialog and its fields.
struct entry_dialog_names
{
    const char* dialog = "";
    const char* variable = "txtVar";
    const char* expression = "txtEquation";
    const char* comment = "txtComment";
};

/// The base of the dialogs in which an equation is entered: a form with the variable, the expression, the fields that
/// the derived dialog adds, a comment, a line with the checker's message during typing, and the buttons `cmdDone`,
/// `cmdClear`, `cmdCancel` and `cmdShowallvars`.
///
/// Done asks the derived dialog to take the row over; a refusal is shown as its box and marked in the field it is
/// about, and the dialog stays open. The dialog is shown by open(), deletes itself, and remembers its size. Its labels
/// and buttons use Alt with B, X, M, D, L and V.
class entry_dialog : public QDialog
{
    Q_OBJECT

public:
    /// `hint` is shown below the fields.
    entry_dialog(desktop_context& context, QWidget* parent, const entry_dialog_names& names, const QString& caption,
                 const QString& hint);

    QLineEdit* txtVar() const { return txtVar_; }
    expression_edit* txtEquation() const { return txtEquation_; }
    QLineEdit* txtComment() const { return txtComment_; }

    /// "done" or "cancel", as the dialog was left.
    QString dialog_result() const { return dialog_result_; }

signals:
    /// "Show list of variables" was clicked.
    void listing_asked();

protected:
    /// Checks and takes the row over. Returns the box if it is refused.
    virtual std::optional<message_box> take_over() = 0;
    /// What take_over would refuse of the present texts.
    virtual std::optional<message_box> check() const = 0;
    /// Whether the fields beside the expression are filled in; until then only the expression is checked.
    virtual bool is_filled_in() const { return !txtVar_->text().trimmed().isEmpty(); }
    /// Empties the fields that the derived dialog added.
    virtual void clear_fields() {}
    /// The field that a refusal is about: the expression if the refusal has a place or is a syntax error, else the
    /// variable.
    virtual QWidget* field_about(const message_box& refused) const;

    /// Fills variable, expression and comment.
    void fill_from(const equation_row& row, const row_form& form);
    QFormLayout* form() const { return form_; }
    /// Adds a row above the comment. Changes of a line edit in it update the checker's line.
    void insert_row(const QString& label, QWidget* field);

    void done_clicked();
    void cancel_clicked();
    void clear_clicked();

    desktop_context& context() const { return context_; }

    void showEvent(QShowEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    void build_ui(const entry_dialog_names& names, const QString& hint);
    QLayout* build_buttons();
    void watch(QLineEdit* field);
    void chain_tab_order();
    /// The message for the line below the expression. Returns nullopt if all is well or the expression is still empty.
    std::optional<message_box> check_while_typing() const;
    void show_check();
    void tint_check();

    desktop_context& context_;
    QFormLayout* form_ = nullptr;
    QLineEdit* txtVar_ = nullptr;
    expression_edit* txtEquation_ = nullptr;
    QLineEdit* txtComment_ = nullptr;
    QLabel* lblCheck_ = nullptr;
    QTimer pause_;
    QString dialog_result_ = QStringLiteral("cancel");
    bool was_shown_ = false;
};

} // namespace kelvarin
