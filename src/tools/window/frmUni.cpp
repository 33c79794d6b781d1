// SPDX-License-Identifier: MIT
#include "tools/window/frmUni.h"

#include "desktop/look.h"
#include "desktop/qt_text.h"
#include "platform/run_time_text.h"
#include "tools/window/control_parts.h"
#include "tools/window/link_text.h"
#include "tools/window/on_top_check.h"
#include "tools/window/unit_search.h"

#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>

#include <algorithm>
#include <utility>

namespace kelvarin
{

namespace
{

/// Lines of a selection are separated by U+2029, which other programs don't understand.
QString selected_text(const QPlainTextEdit& text)
{
    return text.textCursor().selectedText().replace(QChar::ParagraphSeparator, QLatin1Char('\n'));
}

} // namespace

frmUni::frmUni(desktop_context& context, QWidget* parent, std::vector<std::filesystem::path> folders)
    : data_window(context, parent, units_file_name, std::move(folders))
{
    build_ui();
    tint_controls();
    connect_controls();
    set_tab_order();
    enable_controls();
    txtNumToConvert_->setFocus();
}

void frmUni::connect_controls()
{
    connect(txtSearch_, &unit_search::unit_chosen, this, &frmUni::go_to_unit);
    connect(cmbTypeOfUnits_, &QComboBox::currentIndexChanged, this, &frmUni::cmbTypeOfUnits_Click);
    for (QComboBox* box : {cmbUnitBefore_, cmbUnitAfter_})
        connect(box, &QComboBox::currentIndexChanged, this, &frmUni::show_notes);
    connect(cmdSwap_, &QPushButton::clicked, this, &frmUni::cmdSwap_Click);
    connect(txtNumToConvert_, &QLineEdit::returnPressed, this, &frmUni::cmdConvert_Click);
    connect(cmdConvert_, &QPushButton::clicked, this, &frmUni::cmdConvert_Click);
    connect(cmdCopyValue_, &QPushButton::clicked, this, [this] { copy_plain_text(context().user, value_); });
    connect(cmdCopy_, &QPushButton::clicked, this, &frmUni::cmdCopy_Click);
    connect(cmdCopyAll_, &QPushButton::clicked, this, &frmUni::cmdCopyAll_Click);
    connect(cmdClear_, &QPushButton::clicked, this, &frmUni::cmdClear_Click);
    connect(txtResults_, &QPlainTextEdit::textChanged, this, &frmUni::enable_controls);
    connect(lblAntoine_, &link_text::clicked, this, &frmUni::antoine_asked);
}

// --------------------------------------------------------------------------------------------- units

std::vector<data_fault> frmUni::show_data(std::string_view content)
{
    unit_list list = read_units(content);
    units_ = std::move(list.units);
    txtSearch_->set_units(units_);
    for (const std::string& type : unit_types(units_))
        cmbTypeOfUnits_->addItem(to_qstring(type));
    enable_controls();
    return std::move(list.faults);
}

void frmUni::cmbTypeOfUnits_Click()
{
    offered_ = units_of_type(units_, to_text(cmbTypeOfUnits_->currentText()));
    for (QComboBox* box : {cmbUnitBefore_, cmbUnitAfter_}) {
        box->clear();
        for (const measurement_unit& each : offered_)
            box->addItem(to_qstring(each.unit_name));
    }
    // Different units are preselected.
    if (offered_.size() > 1) cmbUnitAfter_->setCurrentIndex(1);
    clear_result();
}

const measurement_unit* frmUni::chosen_unit(const QComboBox& box) const
{
    const auto index = static_cast<std::size_t>(box.currentIndex());
    return index < offered_.size() ? &offered_[index] : nullptr;
}

void frmUni::go_to_unit(const measurement_unit& wanted)
{
    cmbTypeOfUnits_->setCurrentText(to_qstring(wanted.unit_type));
    const auto found = std::ranges::find(offered_, wanted.unit_name, &measurement_unit::unit_name);
    const auto index = static_cast<int>(found - offered_.begin());
    if (cmbUnitAfter_->currentIndex() == index) cmbUnitAfter_->setCurrentIndex(cmbUnitBefore_->currentIndex());
    cmbUnitBefore_->setCurrentIndex(index);
    txtNumToConvert_->setFocus();
    txtNumToConvert_->selectAll();
}

void frmUni::cmdSwap_Click()
{
    const int before = cmbUnitBefore_->currentIndex();
    cmbUnitBefore_->setCurrentIndex(cmbUnitAfter_->currentIndex());
    cmbUnitAfter_->setCurrentIndex(before);
}

void frmUni::show_notes()
{
    for (const auto& [box, label] : {std::pair(cmbUnitBefore_, lblNoteBefore_), {cmbUnitAfter_, lblNoteAfter_}}) {
        const measurement_unit* chosen = chosen_unit(*box);
        label->setText(chosen ? to_qstring(chosen->unit_note) : QString());
        label->setToolTip(tip_text(label->text()));
    }
}

// ------------------------------------------------------------------------------------------- results

void frmUni::cmdConvert_Click()
{
    const measurement_unit* before = chosen_unit(*cmbUnitBefore_);
    const measurement_unit* after = chosen_unit(*cmbUnitAfter_);
    if (!before || !after) return;
    const std::string typed = to_text(txtNumToConvert_->text());
    const unit_conversion line = convert_typed(typed, *before, *after);
    txtNumToConvert_->setFocus();
    txtNumToConvert_->selectAll();
    if (line.refusal) {
        context().user.show(this, *line.refusal);
        return;
    }
    value_ = to_qstring(convert_units(numeric_value(typed).value(), *before, *after).text);
    txtResult_->setText(to_qstring(line.text));
    txtResult_->setCursorPosition(0);
    if (chkHistory_->isChecked()) txtResults_->appendPlainText(txtResult_->text());
    enable_controls();
}

void frmUni::clear_result()
{
    txtResult_->clear();
    value_.clear();
    enable_controls();
}

void frmUni::cmdCopy_Click()
{
    const QString selected = selected_text(*txtResults_);
    copy_plain_text(context().user, selected.isEmpty() ? txtResult_->text() : selected);
}

void frmUni::cmdCopyAll_Click()
{
    copy_plain_text(context().user, txtResults_->toPlainText() + QLatin1Char('\n'));
}

void frmUni::cmdClear_Click()
{
    txtResults_->clear();
    clear_result();
}

void frmUni::enable_controls()
{
    const bool has_units = !units_.empty();
    cmdConvert_->setEnabled(has_units);
    cmdSwap_->setEnabled(has_units);
    const bool has_result = !txtResult_->text().isEmpty();
    const bool has_lines = !txtResults_->document()->isEmpty();
    cmdCopyValue_->setEnabled(has_result);
    cmdCopy_->setEnabled(has_result || has_lines);
    cmdCopyAll_->setEnabled(has_lines);
    cmdClear_->setEnabled(has_result || has_lines);
}

void frmUni::tint_controls()
{
    for (QLabel* note : {lblNoteBefore_, lblNoteAfter_, faults_label()})
        note->setPalette(quiet_palette(palette()));
    cmdConvert_->setPalette(solving_palette(palette()));
}

} // namespace kelvarin
