// SPDX-License-Identifier: MIT
#pragma once

#include "desktop/desktop_context.h"
#include "reg/table/import_form.h"
#include "reg/table/table_content.h"

#include <QDialog>

#include <string>

class QCheckBox;
class QComboBox;
class QPlainTextEdit;
class QPushButton;

namespace kelvarin
{

class table_grid;
class table_grid_model;

/// "Import": shows the first lines of a text as a table in the form that was guessed, which can be changed here. It is
/// shown by open() and deletes itself.
class frmImport : public QDialog
{
    Q_OBJECT

public:
    /// `sample` has the first lines of the file `name`.
    frmImport(desktop_context& context, const QString& name, std::string sample, QWidget* parent);

signals:
    void form_chosen(const import_form& form);

private:
    void build_ui(const QString& name);
    void show_form(const import_form& form);
    void show_preview();
    import_form form() const;
    void cmdImport_Click();

    std::string sample_;
    QComboBox* cmbDelimiter_ = nullptr;
    QComboBox* cmbDecimalSign_ = nullptr;
    QCheckBox* chkHeader_ = nullptr;
    table_grid_model* cells_ = nullptr;
    table_grid* grdPreview_ = nullptr;
    QPlainTextEdit* txtNotes_ = nullptr;
    QPushButton* cmdImport_ = nullptr;
};

} // namespace kelvarin
