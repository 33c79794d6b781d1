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

/// The base of the dialogs in which an equation is entered: a form with the variable, the expression, what the derived
/// dialog adds, a comment, a line that shows what the checker says while one types, and the buttons `cmdDone`,
/// `cmdClear`, `cmdCancel` and `cmdShowallvars`.
///
/// Done asks the derived dialog to take the row over; a refusal is shown as its box, marked in the field it
/// is about, and the dialog stays open. The dialog is shown by open(), deletes itself, and keeps its size between
/// uses. Its labels and buttons use Alt with B, X, M, D, L and V.
class entry_dialog : public QDialog
{
    Q_OBJECT

public:
    /// `hint` stands below the fields.
    entry_dialog(desktop_context& context, QWidget* parent, const entry_dialog_names& names, const QString& caption,
                 const QString& hint);

    QLineEdit* txtVar() const { return txtVar_; }
    expression_edit* txtEquation() const { return txtEquation_; }
    QLineEdit* txtComment() const { return txtComment_; }

    /// "done" or "cancel", as the dialog was left.
    QString dialog_result() const { return dialog_result_; }

    void done(int result) override;

signals:
    /// "Show list of variables" was clicked.
    void listing_asked();

protected:
    /// Checks and takes the row over; a refusal is the box to show.
    virtual std::optional<message_box> take_over() = 0;
    /// What take_over would refuse of the fields as they are now.
    virtual std::optional<message_box> check() const = 0;
    /// Whether the fields beside the expression hold something; until then only the expression is checked.
    virtual bool is_filled_in() const { return !txtVar_->text().trimmed().isEmpty(); }
    /// Empties the fields that the derived dialog added.
    virtual void clear_fields() {}
    /// The field that a refusal is about: the expression where it has a place or is a fault of syntax, else
    /// the variable.
    virtual QWidget* field_about(const message_box& refused) const;

    /// Fills variable, expression and comment.
    void fill_from(const equation_row& row);
    QFormLayout* form() const { return form_; }
    /// Adds a row above the comment. A line edit in it is watched for the line that the checker fills.
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
    /// For the line below the expression; nothing where all is well or the expression is still empty.
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
