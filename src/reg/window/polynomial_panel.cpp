// SPDX-License-Identifier: MIT
#include "reg/window/polynomial_panel.h"

#include "desktop/controls.h"
#include "desktop/look.h"
#include "desktop/qt_text.h"
#include "platform/run_time_text.h"

#include <QCheckBox>
#include <QComboBox>
#include <QFormLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QSignalBlocker>

namespace kelvarin
{

namespace
{

QLineEdit* number_field(const char* name, const QString& tip)
{
    auto* field = named(new QLineEdit, name);
    field->setToolTip(tip);
    field->setAccessibleName(tip);
    field->setMinimumWidth(7 * field->fontMetrics().averageCharWidth());
    return field;
}

std::vector<std::string> degree_texts(int highest)
{
    std::vector<std::string> texts = {" 1 Linear"};
    for (int degree = 2; degree <= highest; ++degree)
        texts.push_back(" " + std::to_string(degree));
    return texts;
}

} // namespace

polynomial_panel::polynomial_panel(QWidget* parent) : regression_panel(parent)
{
    const int unit = line_unit(*this);
    auto* row = new QHBoxLayout(this);
    row->setSpacing(unit);
    row->addWidget(build_variables(), 3);
    lstPolDegree_ =
        make_names_list("lstPolDegree", tr("The degrees of the polynomials; Ctrl and Shift select several"));
    auto* degrees = new QVBoxLayout;
    auto* label = new QLabel(tr("D&egrees"));
    label->setBuddy(lstPolDegree_);
    degrees->setSpacing(unit / 4);
    degrees->addWidget(label);
    degrees->addWidget(lstPolDegree_, 1);
    row->addLayout(degrees, 2);
    row->addWidget(build_calculus(), 4);
    const auto refill = [this] { fill_degree_list(); };
    connect(cmbPolDepVar_, &QComboBox::currentIndexChanged, this, refill);
    connect(cmbPolIndepVar_, &QComboBox::currentIndexChanged, this, &polynomial_panel::cmbPolIndepVar_Click);
    connect(chkPolOrigin_, &QCheckBox::toggled, this, refill);
    connect(chkPolyInteg_, &QCheckBox::toggled, fraPolyInteg_, &QWidget::setEnabled);
    connect(chkPolyDeriv_, &QCheckBox::toggled, fraPolyDeriv_, &QWidget::setEnabled);
}

QWidget* polynomial_panel::build_variables()
{
    auto* variables = new QWidget;
    auto* form = new QFormLayout(variables);
    form->setContentsMargins(0, 0, 0, 0);
    form->setFieldGrowthPolicy(QFormLayout::AllNonFixedFieldsGrow);
    cmbPolDepVar_ = make_names_box("cmbPolDepVar", tr("Dependent variable"));
    cmbPolIndepVar_ = make_names_box("cmbPolIndepVar", tr("Independent variable"));
    chkPolOrigin_ = named(new QCheckBox(tr("Through origin ")), "chkPolOrigin");
    chkPolOrigin_->setToolTip(tr("Fit without a constant term"));
    chkPolOrigin_->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    form->addRow(tr("Depe&ndent variable"), cmbPolDepVar_);
    form->addRow(tr("&Independent variable"), cmbPolIndepVar_);
    form->addRow(chkPolOrigin_);
    return variables;
}

QWidget* polynomial_panel::build_calculus()
{
    auto* calculus = new QWidget;
    auto* rows = new QVBoxLayout(calculus);
    rows->setContentsMargins(0, 0, 0, 0);
    rows->setSpacing(line_unit(*this) / 4);
    const auto add = [&](QCheckBox*& box, QGroupBox*& frame, const QString& caption, const char* box_name,
                         const QString& frame_caption, const char* frame_name) {
        box = named(new QCheckBox(caption), box_name);
        frame = named(new QGroupBox(frame_caption), frame_name);
        frame->setFlat(true);
        frame->setEnabled(false);
        auto* row = new QHBoxLayout(frame);
        row->setContentsMargins(0, 0, 0, 0);
        rows->addWidget(box, 0, Qt::AlignLeft);
        rows->addWidget(frame);
        return row;
    };
    const auto add_number = [](QHBoxLayout& row, QLabel*& label, const char* label_name, QLineEdit*& field,
                               const char* name, const QString& tip) {
        label = named(new QLabel, label_name);
        field = number_field(name, tip);
        label->setBuddy(field);
        row.addWidget(label);
        row.addWidget(field, 1);
    };
    QHBoxLayout* integral = add(chkPolyInteg_, fraPolyInteg_, tr("Pol&ynomial Integration"), "chkPolyInteg",
                                tr("Integration Boundaries"), "fraPolyInteg");
    add_number(*integral, lblPolyIntegx1_, "lblPolyIntegx1", txtPolyIntegx1_, "txtPolyIntegx1", tr("Lower bound"));
    add_number(*integral, lblPolyIntegx2_, "lblPolyIntegx2", txtPolyIntegx2_, "txtPolyIntegx2", tr("Upper bound"));
    QHBoxLayout* derivative = add(chkPolyDeriv_, fraPolyDeriv_, tr("Polynomial Deri&vative"), "chkPolyDeriv",
                                  tr("Derivative Point"), "fraPolyDeriv");
    add_number(*derivative, lblPolyDerivx_, "lblPolyDerivx", txtPolyIntegx_, "txtPolyIntegx", tr("Derivative point"));
    rows->addStretch(1);
    return calculus;
}

void polynomial_panel::show_lists(const table_content& content, const regression_lists& lists)
{
    content_ = content;
    {
        const QSignalBlocker no_dependent(cmbPolDepVar_);
        const QSignalBlocker no_independent(cmbPolIndepVar_);
        show_names(*cmbPolDepVar_, lists.numeric_columns, default_dependent(lists.numeric_columns.size()));
        show_names(*cmbPolIndepVar_, lists.numeric_columns, 0);
    }
    cmbPolIndepVar_Click();
}

void polynomial_panel::fill_degree_list()
{
    const int highest = highest_degree(content_, to_text(cmbPolDepVar_->currentText()),
                                       to_text(cmbPolIndepVar_->currentText()), chkPolOrigin_->isChecked());
    show_names(*lstPolDegree_, degree_texts(highest), 0);
}

void polynomial_panel::cmbPolIndepVar_Click()
{
    fill_degree_list();
    const QString x = cmbPolIndepVar_->currentText();
    lblPolyIntegx1_->setText(x + QStringLiteral("1 = "));
    lblPolyIntegx2_->setText(x + QStringLiteral("2 = "));
    lblPolyDerivx_->setText(x + QStringLiteral(" = "));
}

void polynomial_panel::fill(fit_request& request) const
{
    request.kind = regression::polynomial;
    request.dependent = to_text(cmbPolDepVar_->currentText());
    request.independents = {to_text(cmbPolIndepVar_->currentText())};
    request.through_origin = chkPolOrigin_->isChecked();
    for (int i = 0; i < lstPolDegree_->count(); ++i)
        if (lstPolDegree_->item(i)->isSelected())
            request.degrees.push_back(static_cast<int>(val(to_text(lstPolDegree_->item(i)->text()))));
    if (chkPolyInteg_->isChecked())
        request.integral_bounds = {to_text(txtPolyIntegx1_->text()), to_text(txtPolyIntegx2_->text())};
    if (chkPolyDeriv_->isChecked()) request.derivative_point = to_text(txtPolyIntegx_->text());
}

} // namespace kelvarin
