// SPDX-License-Identifier: MIT
#include "reg/window/nonlinear_panel.h"

#include "desktop/controls.h"
#include "desktop/elided_label.h"
#include "desktop/look.h"
#include "desktop/qt_text.h"
#include "reg/nonlinear_model.h"
#include "reg/window/frmREGnlr.h"
#include "reg/window/guess_grid.h"
#include "reg/window/guess_model.h"

#include <QComboBox>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

namespace kelvarin
{

namespace
{

QString list_of(const std::vector<std::string>& names)
{
    QStringList texts;
    for (const std::string& name : names)
        texts.append(to_qstring(name));
    return texts.isEmpty() ? QStringLiteral("unknown") : texts.join(QStringLiteral(", "));
}

} // namespace

nonlinear_panel::nonlinear_panel(desktop_context& context, table_document& table, QWidget* parent)
    : regression_panel(parent), context_(context), table_(table)
{
    auto* row = new QHBoxLayout(this);
    row->setSpacing(line_unit(*this));
    row->addWidget(build_model(), 3);
    row->addWidget(build_guesses(), 2);
}

QWidget* nonlinear_panel::build_model()
{
    auto* model = new QWidget;
    auto* form = new QFormLayout(model);
    form->setContentsMargins(0, 0, 0, 0);
    form->setVerticalSpacing(line_unit(*this) / 4);
    form->setFieldGrowthPolicy(QFormLayout::AllNonFixedFieldsGrow);
    txtNoneLinearModel_ = named(new QLineEdit, "txtNoneLinearModel");
    txtNoneLinearModel_->setReadOnly(true);
    txtNoneLinearModel_->setFont(fixed_font(*this));
    txtNoneLinearModel_->setAccessibleName(tr("Model"));
    cmdEnterNLR_ =
        make_button(tr("Ent&er Model"), "cmdEnterNLR", tr("Type the model and choose its dependent variable"));
    connect(cmdEnterNLR_, &QPushButton::clicked, this, &nonlinear_panel::cmdEnterNLR_Click);
    auto* line = new QHBoxLayout;
    line->addWidget(txtNoneLinearModel_, 1);
    line->addWidget(cmdEnterNLR_);
    form->addRow(tr("Model"), line);
    auto* hint = named(new QLabel(QStringLiteral("i.e.  y = 2*x^A+B*ln(x)/(C+x)")), "lblNoneLinearDepVar");
    hint->setPalette(quiet_palette(palette()));
    form->addRow(QString(), hint);
    const auto add = [&](elided_label*& label, const char* name, const QString& caption) {
        label = named(new elided_label, name);
        form->addRow(caption, label);
    };
    add(lblDependentVar_, "lblDependentVar", tr("Dependent Variable"));
    add(lblnDependentVars_, "lblnDependentVars", tr("Independent Variable/s"));
    add(lblModelVars_, "lblModelVars", tr("Model Variable/s"));
    return model;
}

QWidget* nonlinear_panel::build_guesses()
{
    auto* side = new QWidget;
    auto* rows = new QVBoxLayout(side);
    rows->setContentsMargins(0, 0, 0, 0);
    rows->setSpacing(line_unit(*this) / 4);
    cmbNLRMethod_ = named(new QComboBox, "cmbNLRMethod");
    cmbNLRMethod_->addItems(
        {QLatin1String(method_text(nonlinear_method::mrqmin)), QLatin1String(method_text(nonlinear_method::lm))});
    cmbNLRMethod_->setToolTip(tr("The method of Levenberg and Marquardt with forward differences, or with central "
                                 "differences and scaled equations"));
    auto* method = new QFormLayout;
    method->setContentsMargins(0, 0, 0, 0);
    method->addRow(tr("Meth&od"), cmbNLRMethod_);
    rows->addLayout(method);
    guesses_ = new guess_model(this);
    grdNlrGuess_ = named(new guess_grid, "grdNlrGuess");
    grdNlrGuess_->setModel(guesses_);
    grdNlrGuess_->setAccessibleName(tr("Initial guesses"));
    grdNlrGuess_->setMinimumHeight(4 * line_unit(*this));
    grdNlrGuess_->setMaximumHeight(10 * line_unit(*this));
    rows->addWidget(grdNlrGuess_, 1);
    connect(guesses_, &guess_model::guess_typed, this, [this] {
        table_.set_guesses(guesses_->guesses());
        emit table_changed();
    });
    return side;
}

void nonlinear_panel::show_lists(const table_content& content, const regression_lists& lists)
{
    numeric_columns_ = lists.numeric_columns;
    const table_reader reader(content);
    const nonlinear_model model = parts_of_model(content.model, reader);
    txtNoneLinearModel_->setText(to_qstring(content.model));
    txtNoneLinearModel_->setCursorPosition(0);
    guesses_->show_guesses(guesses_for(content.model, reader, content.guesses));
    lblDependentVar_->show_text(model.dependent.empty() ? QStringLiteral("unknown") : to_qstring(model.dependent));
    lblnDependentVars_->show_text(list_of(model.names.independents));
    lblModelVars_->show_text(list_of(model.names.parameters));
}

void nonlinear_panel::cmdEnterNLR_Click()
{
    auto* dialog = new frmREGnlr(context_, numeric_columns_, table_.content().model, this);
    connect(dialog, &frmREGnlr::model_entered, this, [this](const std::string& model) {
        const table_reader reader(table_.content());
        table_.set_model(model, guesses_for(model, reader, table_.content().guesses));
        emit table_changed();
        grdNlrGuess_->setFocus();
    });
    dialog->open();
}

void nonlinear_panel::take_over_typing()
{
    grdNlrGuess_->take_over_typing();
}

void nonlinear_panel::fill(fit_request& request) const
{
    request.kind = regression::nonlinear;
    request.model = table_.content().model;
    request.guesses = guesses_->guesses();
    request.method = static_cast<nonlinear_method>(cmbNLRMethod_->currentIndex());
}

} // namespace kelvarin
