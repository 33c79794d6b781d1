// SPDX-License-Identifier: MIT
#include "tools/window/frmAnt.h"

#include "desktop/look.h"
#include "desktop/qt_text.h"
#include "platform/format_mask.h"
#include "platform/run_time_text.h"
#include "tools/window/control_parts.h"

#include <QButtonGroup>
#include <QGroupBox>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QStackedLayout>

#include <algorithm>
#include <cmath>

namespace kelvarin
{

namespace
{

/// A pressure with six significant digits.
std::string pressure_text(double pressure)
{
    return plain_text(prefix_value(format_masked(pressure, "0.00000E+00")).value_or(pressure));
}

} // namespace

frmAnt::frmAnt(desktop_context& context, QWidget* parent) : QWidget(parent, Qt::Window), context_(context)
{
    build_ui();
    tint_controls();
    connect_controls();
    set_tab_order();
    set_entering(false);
    cmdABC_->setFocus();
}

void frmAnt::connect_controls()
{
    for (QButtonGroup* choices : {optLog_, optP_, optT_})
        connect(choices, &QButtonGroup::idToggled, this, [this](int, bool chosen) {
            if (chosen) choice_Click();
        });
    for (QLineEdit* field : fields_)
        connect(field, &QLineEdit::returnPressed, this, &frmAnt::cmdok_Click);
    connect(txtT_, &QLineEdit::textChanged, this, &frmAnt::show_pressure);
    connect(cmdABC_, &QPushButton::clicked, this, &frmAnt::cmdABC_Click);
    connect(cmdok_, &QPushButton::clicked, this, &frmAnt::cmdok_Click);
    connect(cmdCancelABC_, &QPushButton::clicked, this, &frmAnt::cmdCancelABC_Click);
    connect(cmdCopy_, &QPushButton::clicked, this, [this] { copy_plain_text(context_.user, LblDisplayed_->text()); });
    connect(cmdHelp_, &QPushButton::clicked, this, &frmAnt::cmdHelp_Click);
    connect(cmdClose_, &QPushButton::clicked, this, &QWidget::close);
}

// ----------------------------------------------------------------------------------------- constants

void frmAnt::cmdABC_Click()
{
    set_entering(true);
    fields_.front()->setFocus();
}

void frmAnt::cmdok_Click()
{
    if (!entering_) return;
    std::array<std::string, 3> typed;
    std::ranges::transform(fields_, typed.begin(), [](const QLineEdit* field) { return to_text(field->text()); });
    if (const auto refusal = tool_.enter(typed[0], typed[1], typed[2])) {
        context_.user.show(this, *refusal);
        const auto wrong = std::ranges::find_if_not(typed, is_numeric) - typed.begin();
        fields_.at(static_cast<std::size_t>(wrong))->setFocus();
        fields_.at(static_cast<std::size_t>(wrong))->selectAll();
        return;
    }
    set_entering(false);
    cmdABC_->setFocus();
}

void frmAnt::cmdCancelABC_Click()
{
    set_entering(false);
    cmdABC_->setFocus();
}

void frmAnt::set_entering(bool entering)
{
    entering_ = entering;
    for (QLineEdit* field : fields_) {
        field->setReadOnly(!entering);
        field->clear();
    }
    cmdABC_->setEnabled(!entering);
    cmdok_->setVisible(entering);
    cmdCancelABC_->setVisible(entering);
    const bool is_open = entering || tool_.constants();
    constants_place_->setCurrentIndex(is_open ? 1 : 0);
    show_equation();
    show_constants();
}

void frmAnt::choice_Click()
{
    const auto refusal =
        tool_.choose({static_cast<antoine_log>(optLog_->checkedId()), static_cast<antoine_pressure>(optP_->checkedId()),
                      static_cast<antoine_temperature>(optT_->checkedId())});
    if (refusal) {
        const antoine_form& kept = tool_.form();
        optLog_->button(static_cast<int>(kept.log))->setChecked(true);
        optP_->button(static_cast<int>(kept.pressure))->setChecked(true);
        optT_->button(static_cast<int>(kept.temperature))->setChecked(true);
        context_.user.show(this, *refusal);
    }
    show_equation();
    show_constants();
}

void frmAnt::show_equation()
{
    lblEquation_->setText(to_qstring(antoine_equation_text(tool_.form())));
    lblUnits_->setText(to_qstring(antoine_units_text(tool_.form())));
}

void frmAnt::show_constants()
{
    const auto& constants = tool_.constants();
    // Text being typed stays unchanged when another form is chosen.
    if (!entering_ && constants) {
        const std::array<std::string, 3> texts = tool_.field_texts();
        const std::array values = {constants->A, constants->B, constants->C};
        for (std::size_t i = 0; i < fields_.size(); ++i) {
            fields_[i]->setText(to_qstring(texts[i]));
            fields_[i]->setToolTip(to_qstring(plain_text(values[i])));
        }
    }
    lblNote_->setVisible(entering_ || (constants && constants->B > 0.0));
    LblDisplayed_->setText(to_qstring(tool_.displayed_line()));
    LblDisplayed_->setCursorPosition(0);
    cmdCopy_->setEnabled(constants.has_value());
    txtT_->setEnabled(constants.has_value());
    show_pressure();
}

void frmAnt::show_pressure()
{
    const antoine_form& form = tool_.form();
    const auto unit_of = [](const auto& items, auto which) {
        return to_qstring(items[static_cast<std::size_t>(which)]);
    };
    QString text = unit_of(antoine_temperature_items, form.temperature);
    const std::optional<double> t = numeric_value(to_text(txtT_->text()));
    if (tool_.constants() && t) {
        const double pressure = vapour_pressure(*tool_.constants(), form, *t);
        text += QStringLiteral(":  ") + (std::isfinite(pressure) ? to_qstring(pressure_text(pressure)) : tr("none")) +
                QLatin1Char(' ') + unit_of(antoine_pressure_items, form.pressure);
    }
    lblPressure_->setText(text);
}

// -------------------------------------------------------------------------------------------- window

void frmAnt::cmdHelp_Click()
{
    context_.frame.action(window_command::contents)->trigger();
}

void frmAnt::tint_controls()
{
    lblNote_->setPalette(quiet_palette(palette()));
    cmdok_->setPalette(solving_palette(palette()));
}

void frmAnt::changeEvent(QEvent* event)
{
    QWidget::changeEvent(event);
    if (event->type() == QEvent::PaletteChange && cmdok_) tint_controls();
}

void frmAnt::keyPressEvent(QKeyEvent* event)
{
    if (entering_ && event->key() == Qt::Key_Escape) return cmdCancelABC_Click();
    QWidget::keyPressEvent(event);
}

} // namespace kelvarin
