// SPDX-License-Identifier: MIT
#include "reg/window/frmREGnlr.h"

#include "desktop/controls.h"
#include "desktop/elided_label.h"
#include "desktop/expression_edit.h"
#include "desktop/look.h"
#include "desktop/qt_text.h"
#include "desktop/window_memory.h"
#include "platform/text_file.h"
#include "reg/nonlinear_model.h"

#include <QComboBox>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QVBoxLayout>

namespace kelvarin
{

frmREGnlr::frmREGnlr(desktop_context& context, const std::vector<std::string>& columns, const std::string& model,
                     QWidget* parent)
    : QDialog(parent), context_(context)
{
    setObjectName(QStringLiteral("frmREGnlr"));
    setWindowTitle(tr("Nonlinear model"));
    setAttribute(Qt::WA_DeleteOnClose);
    build_ui(columns);
    show_model(model);
    txtModel_->setFocus();
    remember_place(context_.registry, *this);
}

void frmREGnlr::build_ui(const std::vector<std::string>& columns)
{
    const int unit = line_unit(*this);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(unit, unit, unit, unit);
    layout->setSpacing(unit / 2);
    QStringList names;
    for (const std::string& name : columns)
        names.append(to_qstring(name));
    cmbDepVar_ = named(new QComboBox, "cmbDepVar");
    cmbDepVar_->addItems(names);
    txtModel_ = named(new expression_edit, "txtModel");
    txtModel_->set_names(names);
    auto* form = new QFormLayout;
    form->setFieldGrowthPolicy(QFormLayout::AllNonFixedFieldsGrow);
    form->addRow(tr("De&pendent variable"), cmbDepVar_);
    form->addRow(tr("&Model"), txtModel_);
    layout->addLayout(form, 1);
    lblFault_ = named(new QLabel(QStringLiteral(" ")), "lblFault");
    lblFault_->setWordWrap(true);
    lblFault_->setPalette(quiet_palette(palette()));
    layout->addWidget(lblFault_);
    auto* hint = new QLabel(tr("Names of columns are variables, all other names are parameters to be fitted."));
    hint->setPalette(quiet_palette(palette()));
    layout->addWidget(hint);
    auto* buttons = new QHBoxLayout;
    const auto add = [&](const QString& caption, const char* name, const QString& tip, auto slot) {
        return add_button(*buttons, caption, name, tip, this, slot);
    };
    add(tr("&Done"), "cmdDone", tr("Take over the model (Ctrl+Enter)"), &frmREGnlr::cmdDone_Click)
        ->setPalette(solving_palette(palette()));
    add(tr("&Clear"), "cmdClear", tr("Empty the field"), [this] {
        txtModel_->set_expression({});
        txtModel_->setFocus();
    });
    buttons->addStretch(1);
    add(tr("Cancel"), "cmdCancel", tr("Close without a change (Esc)"), &QDialog::close);
    layout->addLayout(buttons);
    connect(txtModel_, &expression_edit::done_asked, this, &frmREGnlr::cmdDone_Click);
    connect(txtModel_, &expression_edit::paused, this, &frmREGnlr::show_fault);
    connect(cmbDepVar_, &QComboBox::currentIndexChanged, this, &frmREGnlr::show_fault);
}

void frmREGnlr::show_model(const std::string& model)
{
    const std::size_t equals = model.find('=');
    if (equals == std::string::npos) return;
    const int place = cmbDepVar_->findText(to_qstring(std::string(trimmed(model.substr(0, equals)))));
    if (place >= 0) cmbDepVar_->setCurrentIndex(place);
    txtModel_->set_expression(trimmed(std::string_view(model).substr(equals + 1)));
}

void frmREGnlr::show_fault()
{
    const bool is_blank = trimmed(txtModel_->expression()).empty();
    const auto fault =
        is_blank ? std::nullopt : entry_fault(to_text(cmbDepVar_->currentText()), txtModel_->expression());
    lblFault_->setText(fault ? to_qstring(fault->text) : QStringLiteral(" "));
}

void frmREGnlr::cmdDone_Click()
{
    const std::string dependent = to_text(cmbDepVar_->currentText());
    if (const auto refused = entry_fault(dependent, txtModel_->expression())) {
        context_.user.show(this, *refused);
        txtModel_->setFocus();
        return;
    }
    emit model_entered(dependent + " = " + std::string(trimmed(txtModel_->expression())));
    close();
}

} // namespace kelvarin
