// SPDX-License-Identifier: MIT
#include "reg/window/frmImport.h"

#include "desktop/controls.h"
#include "desktop/look.h"
#include "desktop/qt_text.h"
#include "desktop/window_memory.h"
#include "reg/table/delimited_reader.h"
#include "reg/table/table_import.h"
#include "reg/window/table_grid.h"
#include "reg/window/table_grid_model.h"

#include <QCheckBox>
#include <QComboBox>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QPlainTextEdit>
#include <QVBoxLayout>

#include <utility>

namespace kelvarin
{

namespace
{

void add_choice(QComboBox& list, const QString& caption, char choice)
{
    list.addItem(caption, QChar::fromLatin1(choice));
}

void choose(QComboBox& list, char choice)
{
    list.setCurrentIndex(list.findData(QChar::fromLatin1(choice)));
}

char chosen(const QComboBox& list)
{
    return list.currentData().toChar().toLatin1();
}

} // namespace

frmImport::frmImport(desktop_context& context, const QString& name, std::string sample, QWidget* parent)
    : QDialog(parent), sample_(std::move(sample))
{
    setObjectName(QStringLiteral("frmImport"));
    setWindowTitle(tr("Import"));
    setAttribute(Qt::WA_DeleteOnClose);
    build_ui(name);
    show_form(guess_form(sample_));
    show_preview();
    for (QComboBox* list : {cmbDelimiter_, cmbDecimalSign_})
        connect(list, &QComboBox::currentIndexChanged, this, &frmImport::show_preview);
    connect(chkHeader_, &QCheckBox::toggled, this, &frmImport::show_preview);
    cmdImport_->setFocus();
    resize(QSize(44, 30) * line_unit(*this));
    remember_place(context.registry, *this);
}

void frmImport::build_ui(const QString& name)
{
    const int unit = line_unit(*this);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(unit, unit, unit, unit);
    layout->setSpacing(unit / 2);
    cmbDelimiter_ = named(new QComboBox, "cmbDelimiter");
    add_choice(*cmbDelimiter_, tr("Comma"), ',');
    add_choice(*cmbDelimiter_, tr("Semicolon"), ';');
    add_choice(*cmbDelimiter_, tr("Tab"), '\t');
    add_choice(*cmbDelimiter_, tr("Vertical bar"), '|');
    add_choice(*cmbDelimiter_, tr("Blanks"), blank_delimiter);
    cmbDecimalSign_ = named(new QComboBox, "cmbDecimalSign");
    add_choice(*cmbDecimalSign_, tr("Point: 1.5"), '.');
    add_choice(*cmbDecimalSign_, tr("Comma: 1,5"), ',');
    chkHeader_ = named(new QCheckBox(tr("&First line has the names of the columns")), "chkHeader");
    auto* form = new QFormLayout;
    form->addRow(tr("File"), new QLabel(name));
    form->addRow(tr("Cells are &separated by"), cmbDelimiter_);
    form->addRow(tr("&Decimal sign"), cmbDecimalSign_);
    form->addRow(chkHeader_);
    layout->addLayout(form);

    cells_ = new table_grid_model;
    grdPreview_ = named(new table_grid(cells_, this), "grdPreview");
    grdPreview_->setAccessibleName(tr("First lines of the file as a table"));
    layout->addWidget(grdPreview_, 1);
    txtNotes_ = named(new QPlainTextEdit, "txtNotes");
    txtNotes_->setAccessibleName(tr("What is odd in these lines"));
    txtNotes_->setReadOnly(true);
    txtNotes_->setTabChangesFocus(true);
    constexpr int lines = 4;
    txtNotes_->setFixedHeight(lines * unit + unit / 2);
    layout->addWidget(txtNotes_);

    auto* buttons = new QHBoxLayout;
    buttons->addStretch(1);
    cmdImport_ = add_button(*buttons, tr("&Import"), "cmdImport", tr("Read the whole file in this form"), this,
                            &frmImport::cmdImport_Click);
    cmdImport_->setPalette(solving_palette(palette()));
    cmdImport_->setDefault(true);
    add_button(*buttons, tr("Cancel"), "cmdCancel", tr("Keep the present table"), this, &QDialog::reject);
    layout->addLayout(buttons);
}

void frmImport::show_form(const import_form& form)
{
    choose(*cmbDelimiter_, form.delimiter);
    choose(*cmbDecimalSign_, form.decimal_sign);
    chkHeader_->setChecked(form.has_header);
}

import_form frmImport::form() const
{
    return {chosen(*cmbDelimiter_), chosen(*cmbDecimalSign_), chkHeader_->isChecked()};
}

void frmImport::show_preview()
{
    constexpr table_size no_larger_than_needed = {1, 1};
    const import_result read = import_text(sample_, form(), table_content(no_larger_than_needed));
    cmdImport_->setEnabled(read.content.has_value());
    QStringList heads;
    QStringList notes;
    if (read.content) {
        for (const std::string& name : read.content->names)
            heads.append(to_qstring(name));
        cells_->show_cells(read.content->cells.texts(), heads);
        for (const std::string& note : read.notes)
            notes.append(to_qstring(note));
    } else {
        cells_->show_cells({}, heads);
        notes.append(tr("The file can not be imported: %1.").arg(to_qstring(read.failure)));
    }
    txtNotes_->setPlainText(notes.join(QLatin1Char('\n')));
}

void frmImport::cmdImport_Click()
{
    const import_form chosen = form();
    accept();
    emit form_chosen(chosen);
}

} // namespace kelvarin
