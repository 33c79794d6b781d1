// SPDX-License-Identifier: MIT
// The layout of the converter of Antoine equations.
#include "tools/window/frmAnt.h"

#include "desktop/controls.h"
#include "desktop/icons.h"
#include "desktop/look.h"
#include "desktop/qt_text.h"
#include "tools/window/control_parts.h"

#include <QButtonGroup>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QStackedLayout>
#include <QVBoxLayout>

namespace kelvarin
{

namespace
{

/// Reserves the space of a hidden control, so that nothing moves when it is shown.
void retain_size_when_hidden(QWidget& control)
{
    QSizePolicy policy = control.sizePolicy();
    policy.setRetainSizeWhenHidden(true);
    control.setSizePolicy(policy);
}

} // namespace

void frmAnt::build_ui()
{
    setObjectName(QStringLiteral("frmAnt"));
    setWindowTitle(tr("Antoine constants manipulator"));
    setWindowIcon(program_icon("antoine"));
    const int unit = line_unit(*this);
    auto* page = new QVBoxLayout(this);
    page->setContentsMargins(unit / 2, unit / 2, unit / 2, unit / 2);
    page->setSpacing(unit / 2);
    page->addLayout(build_choices());
    page->addLayout(build_constants());
    page->addLayout(build_entry());
    page->addLayout(build_pressure());
    page->addStretch();
    page->addLayout(build_buttons());
    resize(unit * 30, sizeHint().height());
}

QLayout* frmAnt::build_choices()
{
    const int unit = line_unit(*this);
    auto* grid = without_margins(new QGridLayout);
    grid->setHorizontalSpacing(unit);
    grid->setVerticalSpacing(unit / 2);
    optLog_ = add_choices(*grid, tr("Logarithm"), "optLog", antoine_log_items);
    optP_ = add_choices(*grid, tr("Pressure"), "optP", antoine_pressure_items);
    optT_ = add_choices(*grid, tr("Temperature"), "optT", antoine_temperature_items);
    grid->setColumnStretch(grid->columnCount(), 1);
    return grid;
}

QButtonGroup* frmAnt::add_choices(QGridLayout& grid, const QString& caption, const char* name,
                                  std::span<const std::string_view> items)
{
    const int row = grid.rowCount();
    grid.addWidget(new QLabel(caption, this), row, 0);
    auto* choices = new QButtonGroup(this);
    for (int i = 0; i < static_cast<int>(items.size()); ++i) {
        auto* choice = new QRadioButton(to_qstring(items[static_cast<std::size_t>(i)]), this);
        choice->setObjectName(QStringLiteral("%1_%2").arg(QLatin1String(name)).arg(i));
        choice->setAccessibleDescription(caption);
        choices->addButton(choice, i);
        grid.addWidget(choice, row, i + 1);
    }
    choices->button(0)->setChecked(true);
    return choices;
}

QLayout* frmAnt::build_constants()
{
    auto* empty = named(new QLabel(tr("No constants yet: New... takes A, B and C of a substance."), this), "lblEmpty");
    empty->setAlignment(Qt::AlignCenter);
    empty->setWordWrap(true);
    constants_place_ = new QStackedLayout;
    constants_place_->addWidget(empty);
    constants_place_->addWidget(build_frame());
    return constants_place_;
}

QWidget* frmAnt::build_frame()
{
    frameconstants_ = named(new QGroupBox(tr("Constants"), this), "frameconstants");
    lblEquation_ = named(new QLabel(frameconstants_), "lblEquation");
    lblEquation_->setFont(fixed_font(*this));
    lblUnits_ = named(new QLabel(frameconstants_), "lblUnits");
    QLayout* fields = build_fields();
    lblNote_ = named(new QLabel(to_qstring(antoine_sign_note), frameconstants_), "lblNote");
    retain_size_when_hidden(*lblNote_);
    lblNote_->setWordWrap(true);
    const int unit = line_unit(*this);
    auto* head = without_margins(new QHBoxLayout);
    head->addWidget(lblEquation_);
    head->addStretch();
    head->addWidget(lblUnits_);
    auto* rows = new QVBoxLayout(frameconstants_);
    rows->setSpacing(unit / 2);
    rows->addLayout(head);
    rows->addLayout(fields);
    rows->addWidget(lblNote_);
    return frameconstants_;
}

QLayout* frmAnt::build_fields()
{
    static constexpr std::array names = {"txtA", "txtB", "txtC"};
    // C has no mnemonic: Alt+C closes the window.
    const std::array captions = {tr("&A"), tr("&B"), tr("C")};
    auto* row = without_margins(new QHBoxLayout);
    row->setSpacing(line_unit(*this) / 2);
    for (std::size_t i = 0; i < fields_.size(); ++i) {
        auto* caption = new QLabel(captions[i], frameconstants_);
        fields_[i] = named(new QLineEdit(frameconstants_), names[i]);
        fields_[i]->setFont(fixed_font(*this));
        caption->setBuddy(fields_[i]);
        row->addWidget(caption);
        row->addWidget(fields_[i], 1);
    }
    return row;
}

QLayout* frmAnt::build_entry()
{
    cmdABC_ = named(new QPushButton(tr("&New..."), this), "cmdABC");
    cmdABC_->setToolTip(tr("Enter constants that belong to the choices above"));
    cmdok_ = named(new QPushButton(tr("&OK"), this), "cmdok");
    cmdCancelABC_ = named(new QPushButton(tr("Cancel"), this), "cmdCancelABC");
    retain_size_when_hidden(*cmdok_);
    retain_size_when_hidden(*cmdCancelABC_);
    auto* row = without_margins(new QHBoxLayout);
    row->setSpacing(line_unit(*this) / 2);
    row->addWidget(cmdABC_);
    row->addStretch();
    row->addWidget(cmdok_);
    row->addWidget(cmdCancelABC_);
    return row;
}

QLayout* frmAnt::build_pressure()
{
    LblDisplayed_ = named(new QLineEdit(this), "LblDisplayed");
    LblDisplayed_->setReadOnly(true);
    LblDisplayed_->setFont(fixed_font(*this));
    LblDisplayed_->setAccessibleName(tr("Equation with its constants"));
    cmdCopy_ = named(new QPushButton(program_icon("copy"), QString(), this), "cmdCopy");
    cmdCopy_->setAccessibleName(tr("Copy the equation"));
    cmdCopy_->setToolTip(tr("Copy the equation"));
    txtT_ = named(new QLineEdit(this), "txtT");
    txtT_->setFont(fixed_font(*this));
    txtT_->setMaximumWidth(txtT_->fontMetrics().averageCharWidth() * 12);
    txtT_->setToolTip(tr("A temperature at which the vapour pressure is known shows whether the constants are right"));
    lblPressure_ = named(new QLabel(this), "lblPressure");
    lblPressure_->setTextInteractionFlags(Qt::TextSelectableByMouse);
    // The width of the window doesn't depend on the pressure.
    lblPressure_->setMinimumWidth(fontMetrics().horizontalAdvance(QStringLiteral("deg F:  1.23457E-300 mmHg")));
    auto* caption = new QLabel(tr("Pressure at &t ="), this);
    caption->setBuddy(txtT_);

    const int unit = line_unit(*this);
    auto* line = without_margins(new QHBoxLayout);
    line->setSpacing(unit / 2);
    line->addWidget(LblDisplayed_);
    line->addWidget(cmdCopy_);
    auto* check = without_margins(new QHBoxLayout);
    check->setSpacing(unit / 2);
    check->addWidget(caption);
    check->addWidget(txtT_);
    check->addWidget(lblPressure_, 1);
    auto* rows = without_margins(new QVBoxLayout);
    rows->setSpacing(unit / 2);
    rows->addLayout(line);
    rows->addLayout(check);
    return rows;
}

QLayout* frmAnt::build_buttons()
{
    cmdHelp_ = named(new QPushButton(tr("&Help"), this), "cmdHelp");
    cmdClose_ = named(new QPushButton(tr("&Close"), this), "cmdClose");
    auto* row = without_margins(new QHBoxLayout);
    row->setSpacing(line_unit(*this) / 2);
    row->addStretch();
    row->addWidget(cmdHelp_);
    row->addWidget(cmdClose_);
    return row;
}

void frmAnt::set_tab_order()
{
    QList<QWidget*> order;
    for (const QButtonGroup* choices : {optLog_, optP_, optT_})
        for (QAbstractButton* choice : choices->buttons())
            order.append(choice);
    order.append({fields_[0], fields_[1], fields_[2], cmdABC_, cmdok_, cmdCancelABC_, LblDisplayed_, cmdCopy_, txtT_,
                  cmdHelp_, cmdClose_});
    for (qsizetype i = 1; i < order.size(); ++i)
        setTabOrder(order[i - 1], order[i]);
}

} // namespace kelvarin
