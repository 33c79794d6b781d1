// SPDX-License-Identifier: MIT
// The layout of the units converter.
#include "tools/window/frmUni.h"

#include "desktop/controls.h"
#include "desktop/icons.h"
#include "desktop/look.h"
#include "tools/window/control_parts.h"
#include "tools/window/link_text.h"
#include "tools/window/on_top_check.h"
#include "tools/window/unit_search.h"

#include <QCheckBox>
#include <QComboBox>
#include <QFormLayout>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QVBoxLayout>

namespace kelvarin
{

namespace
{

constexpr int letters_of_unit = 12;
constexpr int shown_types = 22;
constexpr int lines_of_note = 2;

QComboBox* unit_box(QWidget* parent, const char* name)
{
    auto* box = named(new QComboBox(parent), name);
    box->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    box->setMinimumContentsLength(letters_of_unit);
    box->setMaxVisibleItems(shown_types);
    return box;
}

QLabel* caption_of(QWidget* field, const QString& caption)
{
    auto* label = new QLabel(caption, field->parentWidget());
    label->setBuddy(field);
    return label;
}

} // namespace

void frmUni::build_ui()
{
    setObjectName(QStringLiteral("frmUni"));
    setWindowTitle(tr("Unit conversions"));
    setWindowIcon(program_icon("units"));
    const int unit = line_unit(*this);
    auto* page = new QVBoxLayout(this);
    page->setContentsMargins(unit / 2, unit / 2, unit / 2, unit / 2);
    page->setSpacing(unit / 2);
    page->addLayout(build_choice());
    page->addLayout(build_units());
    page->addLayout(build_number());
    page->addLayout(build_results(), 1);
    page->addWidget(faults_label());
    page->addLayout(build_foot());
    resize(unit * 36, unit * 30);
}

QLayout* frmUni::build_choice()
{
    txtSearch_ = named(new unit_search(this), "txtSearch");
    txtSearch_->setPlaceholderText(tr("A unit, its type or words about it"));
    cmbTypeOfUnits_ = unit_box(this, "cmbTypeOfUnits");
    auto* form = without_margins(new QFormLayout);
    form->setSpacing(line_unit(*this) / 2);
    form->setFieldGrowthPolicy(QFormLayout::AllNonFixedFieldsGrow);
    form->addRow(tr("&Search"), txtSearch_);
    form->addRow(tr("&Type"), cmbTypeOfUnits_);
    return form;
}

QLayout* frmUni::build_units()
{
    cmbUnitBefore_ = unit_box(this, "cmbUnitBefore");
    cmbUnitAfter_ = unit_box(this, "cmbUnitAfter");
    cmdSwap_ = named(new QPushButton(program_icon("swap"), QString(), this), "cmdSwap");
    cmdSwap_->setAccessibleName(tr("Swap the units"));
    cmdSwap_->setToolTip(tr("Swap the units"));
    lblNoteBefore_ = named(new QLabel(this), "lblNoteBefore");
    lblNoteAfter_ = named(new QLabel(this), "lblNoteAfter");
    for (QLabel* note : {lblNoteBefore_, lblNoteAfter_}) {
        note->setTextFormat(Qt::PlainText);
        note->setWordWrap(true);
        note->setAlignment(Qt::AlignTop | Qt::AlignLeft);
        // Reserves the space of a note, so that nothing moves.
        note->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
        note->setFixedHeight(note->fontMetrics().lineSpacing() * lines_of_note);
    }
    const int unit = line_unit(*this);
    auto* grid = without_margins(new QGridLayout);
    grid->setHorizontalSpacing(unit / 2);
    grid->setVerticalSpacing(unit / 4);
    grid->addWidget(caption_of(cmbUnitBefore_, tr("&From")), 0, 0);
    grid->addWidget(caption_of(cmbUnitAfter_, tr("T&o")), 0, 2);
    grid->addWidget(cmbUnitBefore_, 1, 0);
    grid->addWidget(cmdSwap_, 1, 1);
    grid->addWidget(cmbUnitAfter_, 1, 2);
    grid->addWidget(lblNoteBefore_, 2, 0);
    grid->addWidget(lblNoteAfter_, 2, 2);
    grid->setColumnStretch(0, 1);
    grid->setColumnStretch(2, 1);
    return grid;
}

QLayout* frmUni::build_number()
{
    txtNumToConvert_ = named(new QLineEdit(this), "txtNumToConvert");
    txtNumToConvert_->setPlaceholderText(tr("A number, then Return"));
    cmdConvert_ = named(new QPushButton(tr("&Convert"), this), "cmdConvert");
    txtResult_ = named(new QLineEdit(this), "txtResult");
    txtResult_->setReadOnly(true);
    cmdCopyValue_ = named(new QPushButton(program_icon("copy"), QString(), this), "cmdCopyValue");
    cmdCopyValue_->setAccessibleName(tr("Copy the converted number"));
    cmdCopyValue_->setToolTip(tr("Copy the converted number alone"));
    for (QLineEdit* field : {txtNumToConvert_, txtResult_})
        field->setFont(fixed_font(*this));
    const int unit = line_unit(*this);
    auto* grid = without_margins(new QGridLayout);
    grid->setSpacing(unit / 2);
    grid->addWidget(caption_of(txtNumToConvert_, tr("&Number")), 0, 0);
    grid->addWidget(txtNumToConvert_, 0, 1);
    grid->addWidget(cmdConvert_, 0, 2, 1, 2);
    grid->addWidget(caption_of(txtResult_, tr("&Result")), 1, 0);
    grid->addWidget(txtResult_, 1, 1, 1, 2);
    grid->addWidget(cmdCopyValue_, 1, 3);
    grid->setColumnStretch(1, 1);
    return grid;
}

QLayout* frmUni::build_results()
{
    chkHistory_ = named(new QCheckBox(tr("&History"), this), "chkHistory");
    chkHistory_->setToolTip(tr("Keep each result in the list below"));
    chkHistory_->setChecked(true);
    txtResults_ = named(new QPlainTextEdit(this), "txtResults");
    txtResults_->setReadOnly(true);
    txtResults_->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    txtResults_->setTabChangesFocus(true);
    txtResults_->setAccessibleName(tr("Results"));
    txtResults_->setPlaceholderText(tr("Converted numbers are kept here."));
    txtResults_->setFont(fixed_font(*this));
    txtResults_->setMinimumHeight(line_unit(*this) * 5);
    cmdCopy_ = named(new QPushButton(tr("Copy"), this), "cmdCopy");
    cmdCopy_->setToolTip(tr("Copy what is selected in the list, or else the last result"));
    cmdCopyAll_ = named(new QPushButton(tr("Copy All"), this), "cmdCopyAll");
    cmdCopyAll_->setToolTip(tr("Copy the whole list"));
    cmdClear_ = named(new QPushButton(tr("Cl&ear"), this), "cmdClear");
    cmdClear_->setToolTip(tr("Forget the results"));

    const int unit = line_unit(*this);
    auto* buttons = without_margins(new QHBoxLayout);
    buttons->setSpacing(unit / 2);
    buttons->addWidget(cmdCopy_);
    buttons->addWidget(cmdCopyAll_);
    buttons->addWidget(cmdClear_);
    buttons->addStretch();
    auto* column = without_margins(new QVBoxLayout);
    column->setSpacing(unit / 4);
    // No wider than its caption: a click beside it has no effect.
    column->addWidget(chkHistory_, 0, Qt::AlignLeft);
    column->addWidget(txtResults_, 1);
    column->addSpacing(unit / 4);
    column->addLayout(buttons);
    return column;
}

QLayout* frmUni::build_foot()
{
    lblAntoine_ = named(new link_text(tr("Antoine equation units converter ..."), this), "lblAntoine");
    chkOnTop_ = new on_top_check(this);
    auto* row = without_margins(new QHBoxLayout);
    row->addWidget(lblAntoine_);
    row->addStretch();
    row->addWidget(chkOnTop_);
    return row;
}

void frmUni::set_tab_order()
{
    const QList<QWidget*> order = {txtSearch_,    cmbTypeOfUnits_,  cmbUnitBefore_, cmdSwap_,
                                   cmbUnitAfter_, txtNumToConvert_, cmdConvert_,    txtResult_,
                                   cmdCopyValue_, chkHistory_,      txtResults_,    cmdCopy_,
                                   cmdCopyAll_,   cmdClear_,        lblAntoine_,    chkOnTop_};
    for (qsizetype i = 1; i < order.size(); ++i)
        setTabOrder(order[i - 1], order[i]);
}

} // namespace kelvarin
