// SPDX-License-Identifier: MIT
#include "reg/window/multiple_panel.h"

#include "desktop/controls.h"
#include "desktop/look.h"
#include "desktop/qt_text.h"

#include <QCheckBox>
#include <QComboBox>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QListWidget>
#include <QSignalBlocker>

namespace kelvarin
{

multiple_panel::multiple_panel(QWidget* parent) : regression_panel(parent)
{
    const int unit = line_unit(*this);
    auto* row = new QHBoxLayout(this);
    row->setSpacing(unit);
    auto* form = new QFormLayout;
    form->setFieldGrowthPolicy(QFormLayout::AllNonFixedFieldsGrow);
    cmbMLDepVar_ = make_names_box("cmbMLDepVar", tr("Dependent variable"));
    chkMultiLinOrigin_ = named(new QCheckBox(tr("Through origin ")), "chkMultiLinOrigin");
    chkMultiLinOrigin_->setToolTip(tr("Fit without a constant term"));
    chkMultiLinOrigin_->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    form->addRow(tr("Depe&ndent variable"), cmbMLDepVar_);
    form->addRow(chkMultiLinOrigin_);
    row->addLayout(form, 1);
    lstMLIndepVars_ = make_names_list("lstMLIndepVars", tr("The independent variables; Ctrl and Shift select several"));
    auto* list = new QVBoxLayout;
    list->setSpacing(unit / 4);
    auto* label = new QLabel(tr("&Independent variables"));
    label->setBuddy(lstMLIndepVars_);
    list->addWidget(label);
    list->addWidget(lstMLIndepVars_, 1);
    row->addLayout(list, 1);
    connect(cmbMLDepVar_, &QComboBox::currentIndexChanged, this, &multiple_panel::cmbMLDepVar_Click);
}

void multiple_panel::show_lists(const table_content& /*content*/, const regression_lists& lists)
{
    numeric_columns_ = lists.numeric_columns;
    {
        const QSignalBlocker blocked(cmbMLDepVar_);
        show_names(*cmbMLDepVar_, numeric_columns_, default_dependent(numeric_columns_.size()));
    }
    cmbMLDepVar_Click();
}

void multiple_panel::cmbMLDepVar_Click()
{
    show_names(*lstMLIndepVars_, without_dependent(numeric_columns_, to_text(cmbMLDepVar_->currentText())), 0);
}

void multiple_panel::fill(fit_request& request) const
{
    request.kind = regression::multiple;
    request.dependent = to_text(cmbMLDepVar_->currentText());
    for (int i = 0; i < lstMLIndepVars_->count(); ++i)
        if (lstMLIndepVars_->item(i)->isSelected())
            request.independents.push_back(to_text(lstMLIndepVars_->item(i)->text()));
    request.through_origin = chkMultiLinOrigin_->isChecked();
}

} // namespace kelvarin
