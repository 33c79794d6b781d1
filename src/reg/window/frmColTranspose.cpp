// SPDX-License-Identifier: MIT
#include "reg/window/frmColTranspose.h"

#include "desktop/controls.h"
#include "desktop/expression_edit.h"
#include "desktop/look.h"
#include "desktop/qt_text.h"
#include "desktop/window_memory.h"

#include <QFormLayout>
#include <QHBoxLayout>
#include <QLineEdit>
#include <QVBoxLayout>

namespace kelvarin
{

frmColTranspose::frmColTranspose(desktop_context& context, table_document& table, int column, QWidget* parent)
    : QDialog(parent), context_(context), table_(table)
{
    setObjectName(QStringLiteral("frmColTranspose"));
    setWindowTitle(tr("Column defintion"));
    setAttribute(Qt::WA_DeleteOnClose);
    build_ui();
    fill_names(column);
    cmbCol_Click(column);
    txtTranspose_->setFocus();
    remember_place(context_.registry, *this);
}

void frmColTranspose::build_ui()
{
    const int unit = line_unit(*this);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(unit, unit, unit, unit);
    layout->setSpacing(unit / 2);
    layout->addWidget(new QLabel(tr("Define a column as function of other columns: ")));
    cmbCol_ = named(new QComboBox, "cmbCol");
    cmbCol_->setEditable(true);
    cmbCol_->setInsertPolicy(QComboBox::NoInsert);
    cmbCol_->setCompleter(nullptr);
    cmbCol_->setToolTip(tr("Another text renames the column"));
    lblColName_ = named(new QLabel(this), "lblColName");
    lblColName_->hide();
    txtTranspose_ = named(new expression_edit, "txtTranspose");
    auto* form = new QFormLayout;
    form->setFieldGrowthPolicy(QFormLayout::AllNonFixedFieldsGrow);
    form->addRow(tr("C&olumn"), cmbCol_);
    form->addRow(tr("&Formula"), txtTranspose_);
    layout->addLayout(form, 1);
    for (const QString& hint :
         {tr("Note: Column names are case sensitive."), QStringLiteral("C03 = C01 - (C01+2*C02)/2")}) {
        auto* label = new QLabel(hint);
        label->setPalette(quiet_palette(palette()));
        layout->addWidget(label);
    }
    auto* buttons = new QHBoxLayout;
    const auto add = [&](const QString& caption, const char* name, const QString& tip, auto slot) {
        return add_button(*buttons, caption, name, tip, this, slot);
    };
    auto* evaluate = add(tr("E&valuate"), "cmdOk", tr("Store the formula and calculate the column (Ctrl+Enter)"),
                         &frmColTranspose::cmdOk_Click);
    evaluate->setPalette(solving_palette(palette()));
    add(tr("&Clear"), "cmdClear", tr("Make it a plain column; its cells stay"), &frmColTranspose::cmdClear_Click);
    add(tr("Clear all"), "cmdClearMemory", tr("Make all columns plain ones"), &frmColTranspose::cmdClearMemory_Click);
    buttons->addStretch(1);
    add(tr("E&xit"), "cmdExit", tr("Close this window"), &QDialog::close);
    layout->addLayout(buttons);
    connect(cmbCol_, &QComboBox::activated, this, &frmColTranspose::cmbCol_Click);
    connect(txtTranspose_, &expression_edit::done_asked, this, &frmColTranspose::cmdOk_Click);
}

void frmColTranspose::fill_names(int chosen)
{
    QStringList names;
    for (const std::string& name : table_.content().names)
        names.append(to_qstring(name));
    cmbCol_->clear();
    cmbCol_->addItems(names);
    cmbCol_->setCurrentIndex(chosen);
    txtTranspose_->set_names(names);
}

void frmColTranspose::cmbCol_Click(int column)
{
    lblColName_->setText(QString::number(column));
    txtTranspose_->set_expression(table_.content().formula(column));
}

void frmColTranspose::cmdOk_Click()
{
    const std::string name = to_text(cmbCol_->currentText());
    if (name != table_.content().name(column())) {
        const name_change renamed = table_.rename_column(column(), name);
        if (!renamed.changed) {
            if (renamed.box) context_.user.show(this, *renamed.box);
            context_.user.show(this, {"Column definition was not changed.", box_icon::critical});
            return;
        }
        fill_names(column());
        emit table_changed();
    }
    if (const auto refused = table_.define_column(column(), txtTranspose_->expression())) {
        context_.user.show(this, *refused);
        txtTranspose_->setFocus();
        return;
    }
    emit table_changed();
}

void frmColTranspose::cmdClear_Click()
{
    txtTranspose_->set_expression({});
    table_.clear_definition(column());
    emit table_changed();
}

void frmColTranspose::cmdClearMemory_Click()
{
    const user_question asked = {.text =
                                     "All formulas for column transpose will be deleted. Do you want to continue ?"};
    if (context_.user.ask(this, asked) != user_answer::yes) return;
    table_.clear_all_definitions();
    txtTranspose_->set_expression({});
    emit table_changed();
}

} // namespace kelvarin
