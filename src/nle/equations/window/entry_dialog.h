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
/// the derived dialog adds, a comment, a line with the checker's message below the field at fault, and the buttons
/// `cmdDone`, `cmdClear`, `cmdCancel` and `cmdShowallvars`.
///
/// Done asks the derived dialog to take the row over; a refusal is shown as its box, what it is about is selected in
/// its field, and the dialog stays open. The dialog is shown by open(), deletes itself, and remembers its size. Its
/// labels and buttons use Alt with B, X, M, D, L and V.
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
    /// The field of the initial guess or value; null if there is none.
    QLineEdit* value_field() const { return value_field_; }

    /// Chooses the field in which typing begins: by default the variable of a new row, the expression of one that is
    /// changed.
    void start_in(entry_field field) { start_ = field; }

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

    /// Fills variable, expression and comment.
    void fill_from(const equation_row& row, const row_form& form);
    QFormLayout* form() const { return form_; }
    /// Adds a row above the comment. Changes of a line edit in it update the checker's line.
    void insert_row(const QString& label, QWidget* field);
    /// The same for the field of the initial guess or value, with the checker's line below it. Returns its label.
    QLabel* insert_value(const QString& label, QLineEdit* field);

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
    void tint_checks();
    QLabel* make_check(const char* name);
    /// The field that a refusal is about, and the line below it.
    QWidget* field_of(entry_field field) const;
    QLabel* check_below(entry_field field) const;

    desktop_context& context_;
    QFormLayout* form_ = nullptr;
    QLineEdit* txtVar_ = nullptr;
    expression_edit* txtEquation_ = nullptr;
    QLineEdit* txtComment_ = nullptr;
    QLineEdit* value_field_ = nullptr;
    QLabel* lblCheckVar_ = nullptr;
    QLabel* lblCheck_ = nullptr;
    QLabel* lblCheckValue_ = nullptr;
    entry_field start_ = entry_field::name;
    QTimer pause_;
    QString dialog_result_ = QStringLiteral("cancel");
    bool was_shown_ = false;
};

} // namespace kelvarin
