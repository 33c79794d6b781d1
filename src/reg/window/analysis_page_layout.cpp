// SPDX-License-Identifier: MIT
// The layout of the page.

#include "desktop/controls.h"
#include "desktop/elided_label.h"
#include "desktop/look.h"
#include "desktop/qt_text.h"
#include "reg/window/analysis_page.h"
#include "reg/window/analysis_plot.h"

#include <QComboBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTabWidget>
#include <QVBoxLayout>

namespace kelvarin
{

namespace
{

QLabel* plain_label(const char* name)
{
    auto* label = named(new QLabel, name);
    label->setTextFormat(Qt::PlainText);
    return label;
}

/// Nothing moves when the widget appears.
void keep_room(QWidget& widget)
{
    QSizePolicy policy = widget.sizePolicy();
    policy.setRetainSizeWhenHidden(true);
    widget.setSizePolicy(policy);
}

} // namespace

void analysis_page::build_ui()
{
    const int unit = line_unit(*this);
    auto* row = new QHBoxLayout(this);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(unit);
    auto* column = new QVBoxLayout;
    column->setSpacing(unit / 2);
    column->addWidget(build_columns());
    column->addWidget(build_requests());
    column->addWidget(build_findings());
    column->addStretch(1);
    row->addLayout(column, 1);
    plot_ = named(new analysis_plot, "picAnalysis");
    plot_->setAccessibleName(tr("Points and interpolating curves"));
    row->addWidget(plot_);
}

QWidget* analysis_page::build_columns()
{
    auto* columns = new QWidget(this);
    auto* row = new QHBoxLayout(columns);
    row->setContentsMargins(0, 0, 0, 0);
    const auto add_list = [&](const QString& caption, const char* name) {
        auto* list = named(new QComboBox, name);
        list->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
        list->setMinimumContentsLength(6);
        auto* label = new QLabel(caption);
        label->setBuddy(list);
        row->addWidget(label);
        row->addWidget(list);
        connect(list, &QComboBox::currentIndexChanged, this, &analysis_page::columns_changed);
        return list;
    };
    cmbDepVar_ = add_list(tr("Dependent"), "cmbDepVar");
    cmbIndepVar_ = add_list(tr("Independent"), "cmbIndepVar");
    lblN_ = plain_label("lblN");
    row->addWidget(lblN_);
    row->addStretch(1);
    auto* values = make_button(tr("Table of values..."), "cmdTableOfValues",
                               tr("Fill two free columns with the function of this page at evenly spaced points"));
    connect(values, &QPushButton::clicked, this, &analysis_page::cmdTableOfValues_Click);
    row->addWidget(values);
    return columns;
}

QWidget* analysis_page::build_requests()
{
    sstAnalysis_ = named(new QTabWidget, "sstAnalysis");
    sstAnalysis_->setAccessibleName(tr("Kinds of analysis"));
    build_interpolation();
    build_differentiation();
    build_integration();
    connect(sstAnalysis_, &QTabWidget::currentChanged, this, &analysis_page::clear_result);
    return sstAnalysis_;
}

QHBoxLayout* analysis_page::add_request(const QString& caption)
{
    auto* page = new QWidget;
    auto* row = new QHBoxLayout(page);
    sstAnalysis_->addTab(page, caption);
    return row;
}

QLineEdit* analysis_page::add_value(QHBoxLayout& row, const QString& caption, const char* name)
{
    constexpr int digits = 9;
    auto* field = named(new QLineEdit, name);
    field->setAccessibleName(caption);
    field->setFont(fixed_font(*this));
    field->setMinimumWidth(field->fontMetrics().horizontalAdvance(QLatin1Char('0')) * digits);
    connect(field, &QLineEdit::textChanged, this, &analysis_page::clear_result);
    connect(field, &QLineEdit::returnPressed, this, &analysis_page::solve_asked);
    row.addWidget(field, 1);
    return field;
}

QComboBox* analysis_page::add_methods(QHBoxLayout& row, analysis_kind kind, const char* name)
{
    auto* list = named(new QComboBox, name);
    list->setAccessibleName(tr("Method"));
    for (const std::string_view method : analysis_methods(kind))
        list->addItem(to_qstring(method));
    connect(list, &QComboBox::currentIndexChanged, this, &analysis_page::clear_result);
    row.addWidget(new QLabel(tr("Method")));
    row.addWidget(list);
    return list;
}

QLineEdit* analysis_page::add_result(QHBoxLayout& row, QLabel* label, const char* name)
{
    constexpr int digits = 9;
    auto* field = named(new QLineEdit, name);
    field->setAccessibleName(tr("Result"));
    field->setReadOnly(true);
    field->setFont(fixed_font(*this));
    field->setMinimumWidth(field->fontMetrics().horizontalAdvance(QLatin1Char('0')) * digits);
    row.addWidget(label);
    row.addWidget(field, 1);
    return field;
}

void analysis_page::build_interpolation()
{
    QHBoxLayout* row = add_request(tr("Interpolation"));
    lblIndepVal_ = plain_label("lblIndepVal");
    lblDepVal_ = plain_label("lblDepVal");
    row->addWidget(lblIndepVal_);
    request_controls& made = requests_[0];
    made.at = add_value(*row, tr("Value of the independent variable"), "txtIndepVal");
    made.method = add_methods(*row, analysis_kind::interpolation, "cmbInterpolationMethod");
    made.result = add_result(*row, lblDepVal_, "txtDepVal");
}

void analysis_page::build_differentiation()
{
    QHBoxLayout* row = add_request(tr("Differentiation"));
    lblIndepVarValue_ = plain_label("lblIndepVarValue");
    lblDFDX_ = plain_label("lblDFDX");
    row->addWidget(lblIndepVarValue_);
    request_controls& made = requests_[1];
    made.at = add_value(*row, tr("Value of the independent variable"), "txtIndepVarValue");
    made.method = add_methods(*row, analysis_kind::differentiation, "cmbDifferentiationMethod");
    made.result = add_result(*row, lblDFDX_, "txtDiffResult");
}

void analysis_page::build_integration()
{
    QHBoxLayout* row = add_request(tr("Integration"));
    lblFDX_ = plain_label("lblFDX");
    request_controls& made = requests_[2];
    row->addWidget(new QLabel(tr("from")));
    made.at = add_value(*row, tr("Lower bound"), "txtLowInteg");
    row->addWidget(new QLabel(tr("to")));
    made.to = add_value(*row, tr("Upper bound"), "txtHighInteg");
    made.method = add_methods(*row, analysis_kind::integration, "cmbIntegrationMethod");
    made.result = add_result(*row, lblFDX_, "txtIntegResult");
}

QWidget* analysis_page::build_findings()
{
    const int unit = line_unit(*this);
    auto* findings = new QWidget(this);
    auto* column = new QVBoxLayout(findings);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(unit / 4);
    auto* row = new QHBoxLayout;
    row->setSpacing(unit);
    lblErr_ = plain_label("lblErr");
    lblDev_ = plain_label("lblDev");
    lblOthers_ = named(new elided_label, "lblOthers");
    QFont small = lblOthers_->font();
    small.setPointSizeF(small.pointSizeF() * 0.85);
    lblOthers_->setFont(small);
    lblOthers_->setPalette(quiet_palette(palette()));
    row->addWidget(lblErr_);
    row->addWidget(lblDev_);
    row->addWidget(lblOthers_, 1);
    column->addLayout(row);
    lblWarning_ = named(new elided_label, "lblWarning");
    lblWarning_->show_text(to_qstring(analysis_warning));
    QPalette warning = palette();
    warning.setColor(QPalette::WindowText, warning_colour(palette()));
    lblWarning_->setPalette(warning);
    column->addWidget(lblWarning_);
    for (QWidget* label : std::initializer_list<QWidget*>{lblDev_, lblWarning_})
        keep_room(*label);
    return findings;
}

} // namespace kelvarin
