// SPDX-License-Identifier: MIT
#include "tools/window/frmConstant.h"

#include "desktop/controls.h"
#include "desktop/icons.h"
#include "desktop/look.h"
#include "desktop/qt_text.h"
#include "desktop/search_keys.h"
#include "platform/text_file.h"
#include "tools/window/constant_view.h"
#include "tools/window/control_parts.h"
#include "tools/window/database_viewer.h"
#include "tools/window/on_top_check.h"

#include <QComboBox>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

#include <utility>

namespace kelvarin
{

frmConstant::frmConstant(desktop_context& context, QWidget* parent, std::vector<std::filesystem::path> folders)
    : data_window(context, parent, constants_file_name, std::move(folders))
{
    build_ui();
    tint_controls();
    connect_controls();
    enable_controls();
    txtSearch_->setFocus();
}

void frmConstant::build_ui()
{
    setObjectName(QStringLiteral("frmConstant"));
    setWindowTitle(tr("Constants"));
    setWindowIcon(program_icon("constants"));

    txtSearch_ = named(new QLineEdit(this), "txtSearch");
    txtSearch_->setPlaceholderText(tr("Words of a constant, its units or its group"));
    txtSearch_->setClearButtonEnabled(true);
    cmbConstType_ = named(new QComboBox(this), "cmbConstType");
    lstConst_ = named(new constant_view(this), "lstConst");
    lstConst_->setAccessibleName(tr("Constants"));
    cmdCopy_ = named(new QPushButton(tr("Copy"), this), "cmdCopy");
    cmdCopy_->setToolTip(tr("Copy the selected constant with its value and units"));
    cmdCopyValue_ = named(new QPushButton(tr("Copy &Value"), this), "cmdCopyValue");
    cmdCopyValue_->setToolTip(tr("Copy the value of the selected constant alone"));
    cmdKvrData_ = named(new QPushButton(tr("Thermodynamic Database"), this), "cmdKvrData");
    cmdKvrData_->setToolTip(tr("Start the viewer of the thermodynamic data base"));
    auto* chkOnTop = new on_top_check(this);

    const int unit = line_unit(*this);
    auto* form = without_margins(new QFormLayout);
    form->setSpacing(unit / 2);
    form->setFieldGrowthPolicy(QFormLayout::AllNonFixedFieldsGrow);
    form->addRow(tr("&Search"), txtSearch_);
    form->addRow(tr("&Type"), cmbConstType_);
    auto* buttons = without_margins(new QHBoxLayout);
    buttons->setSpacing(unit / 2);
    buttons->addWidget(cmdCopy_);
    buttons->addWidget(cmdCopyValue_);
    buttons->addStretch();
    buttons->addWidget(cmdKvrData_);
    buttons->addSpacing(unit / 2);
    buttons->addWidget(chkOnTop);
    auto* page = new QVBoxLayout(this);
    page->setContentsMargins(unit / 2, unit / 2, unit / 2, unit / 2);
    page->setSpacing(unit / 2);
    page->addLayout(form);
    page->addWidget(lstConst_, 1);
    page->addWidget(faults_label());
    page->addLayout(buttons);
    resize(unit * 40, unit * 28);
}

void frmConstant::connect_controls()
{
    connect(txtSearch_, &QLineEdit::textChanged, this, &frmConstant::txtSearch_Change);
    // The first result is selected already; with the focus on it, it can be copied.
    new search_keys(*txtSearch_, *lstConst_, [this] {
        if (lstConst_->selected()) lstConst_->setFocus(Qt::TabFocusReason);
    });
    connect(cmbConstType_, &QComboBox::currentIndexChanged, this, &frmConstant::cmbConstType_Click);
    // Choosing the current group again ends a search and shows the group.
    connect(cmbConstType_, &QComboBox::activated, this, &frmConstant::cmbConstType_Click);
    connect(lstConst_, &QListWidget::itemSelectionChanged, this, &frmConstant::enable_controls);
    connect(lstConst_, &constant_view::copy_requested, this, &frmConstant::cmdCopy_Click);
    connect(cmdCopy_, &QPushButton::clicked, this, &frmConstant::cmdCopy_Click);
    connect(cmdCopyValue_, &QPushButton::clicked, this, &frmConstant::cmdCopyValue_Click);
    connect(cmdKvrData_, &QPushButton::clicked, this, &frmConstant::cmdKvrData_Click);
}

std::vector<data_fault> frmConstant::show_data(std::string_view content)
{
    constant_list list = read_constants(content);
    groups_ = std::move(list.groups);
    for (const constant_group& group : groups_)
        cmbConstType_->addItem(group.name.empty() ? tr("(no name)") : to_qstring(group.name));
    return std::move(list.faults);
}

void frmConstant::cmbConstType_Click()
{
    // Clearing the search calls this function again.
    if (!txtSearch_->text().isEmpty()) return txtSearch_->clear();
    const auto index = static_cast<std::size_t>(cmbConstType_->currentIndex());
    if (index < groups_.size()) lstConst_->show_group(groups_[index]);
    enable_controls();
}

void frmConstant::txtSearch_Change()
{
    const std::string words = to_text(txtSearch_->text());
    if (trimmed(words).empty()) return cmbConstType_Click();
    lstConst_->show_groups(search_constants(groups_, words), tr("No constant has these words."));
    enable_controls();
}

void frmConstant::cmdCopy_Click()
{
    if (const QString line = lstConst_->selected_line(); !line.isEmpty()) copy_plain_text(context().user, line);
}

void frmConstant::cmdCopyValue_Click()
{
    if (const physical_constant* selected = lstConst_->selected())
        copy_plain_text(context().user, to_qstring(selected->value));
}

void frmConstant::cmdKvrData_Click()
{
    const std::filesystem::path folder = folders().empty() ? std::filesystem::path() : folders().front();
    if (const auto refusal = start_database_viewer(folder)) context().user.show(this, *refusal);
}

void frmConstant::enable_controls()
{
    const bool is_selected = lstConst_->selected() != nullptr;
    cmdCopy_->setEnabled(is_selected);
    cmdCopyValue_->setEnabled(is_selected);
}

void frmConstant::tint_controls()
{
    faults_label()->setPalette(quiet_palette(palette()));
}

} // namespace kelvarin
