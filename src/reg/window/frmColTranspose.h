// SPDX-License-Identifier: MIT
#pragma once

#include "desktop/desktop_context.h"
#include "reg/table/table_document.h"

#include <QComboBox>
#include <QDialog>
#include <QLabel>

class QPushButton;

namespace kelvarin
{

class expression_edit;

/// "Column defintion": edits the formulas of a table's columns. It stays open after a definition, is shown by open()
/// and deletes itself.
class frmColTranspose : public QDialog
{
    Q_OBJECT

public:
    /// Begins with `column`. Document and context must outlive the dialog.
    frmColTranspose(desktop_context& context, table_document& table, int column, QWidget* parent);

signals:
    /// The table has another content.
    void table_changed();

private:
    void build_ui();
    void fill_names(int chosen);
    void cmbCol_Click(int column);
    void cmdOk_Click();
    void cmdClear_Click();
    void cmdClearMemory_Click();
    /// The column that is being defined.
    int column() const { return lblColName_->text().toInt(); }

    desktop_context& context_;
    table_document& table_;
    QComboBox* cmbCol_ = nullptr;
    /// Never shown; holds the index of the column that is being defined.
    QLabel* lblColName_ = nullptr;
    expression_edit* txtTranspose_ = nullptr;
};

} // namespace kelvarin
