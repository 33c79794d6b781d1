// SPDX-License-Identifier: MIT
// The layout of the calculator.
#include "tools/window/frmCal.h"

#include "desktop/controls.h"
#include "desktop/icons.h"
#include "desktop/look.h"
#include "desktop/qt_text.h"
#include "tools/window/control_parts.h"
#include "tools/window/expression_entry.h"
#include "tools/window/history_view.h"
#include "tools/window/on_top_check.h"

#include <QCheckBox>
#include <QComboBox>
#include <QFormLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QRadioButton>
#include <QScrollArea>
#include <QSplitter>
#include <QTabWidget>
#include <QVBoxLayout>

#include <algorithm>

namespace kelvarin
{

void frmCal::build_ui()
{
    setObjectName(QStringLiteral("frmCal"));
    setWindowTitle(tr("Calculator"));
    setWindowIcon(program_icon("calculator"));

    tabMore_ = named(new QTabWidget(this), "tabMore");
    tabMore_->addTab(build_functions_page(), tr("F&unctions"));
    tabMore_->addTab(build_history_page(), tr("&History"));
    tabMore_->addTab(build_options_page(), tr("&Options"));
    tabMore_->addTab(build_help_page(), tr("Hel&p"));
    tabMore_->setUsesScrollButtons(false);
    tabMore_->setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
    tabMore_->hide();

    auto* transcript = new QSplitter(Qt::Horizontal, this);
    transcript->addWidget(build_transcript());
    transcript->addWidget(build_variables());
    transcript->setStretchFactor(0, 1);
    transcript->setCollapsible(0, false);
    const int unit = line_unit(*this);
    transcript->setSizes({unit * 21, unit * 9});

    auto* page = new QVBoxLayout(this);
    page->setContentsMargins(unit / 2, unit / 2, unit / 2, unit / 2);
    page->setSpacing(unit / 2);
    page->addWidget(transcript, 1);
    page->addLayout(build_entry());
    page->addLayout(build_answer());
    page->addLayout(build_buttons());
    page->addWidget(tabMore_);

    resize(unit * 30, unit * 34);
}

QWidget* frmCal::build_transcript()
{
    txtHistory_ = named(new history_view(this), "txtHistory");
    txtHistory_->setAccessibleName(tr("History"));
    txtHistory_->setPlaceholderText(tr("Type an expression below and press Return.\n\n"
                                       "x = 2*3 keeps its value as x for the lines behind it."));
    txtHistory_->setToolTip(tr("A click on a line brings it back into the expression"));
    txtHistory_->setMinimumWidth(line_unit(*this) * 8);
    return txtHistory_;
}

QWidget* frmCal::build_variables()
{
    auto* panel = new QWidget(this);
    lstVars_ = named(new QListWidget(panel), "lstVars");
    lstVars_->setMinimumWidth(line_unit(*this) * 6);
    lstVars_->setAccessibleName(tr("Variables"));
    auto* caption = new QLabel(tr("&Variables"), panel);
    caption->setBuddy(lstVars_);
    lblNum_vars_ = named(new QLabel(QStringLiteral("0"), panel), "lblNum_vars");
    lblNum_vars_->setToolTip(tr("The number of variables"));
    cmdModifyVar_ = named(new QPushButton(tr("Modify"), panel), "cmdModifyVar");
    cmdModifyVar_->setToolTip(tr("Give the selected variable another value"));
    cmdDeleteVar_ = named(new QPushButton(tr("Delete"), panel), "cmdDeleteVar");
    cmdDeleteVar_->setToolTip(tr("Remove the selected variable"));

    auto* head = without_margins(new QHBoxLayout);
    head->addWidget(caption);
    head->addStretch();
    head->addWidget(lblNum_vars_);
    auto* column = without_margins(new QVBoxLayout(panel));
    column->setSpacing(line_unit(*this) / 4);
    column->addLayout(head);
    column->addWidget(lstVars_);
    column->addWidget(cmdModifyVar_);
    column->addWidget(cmdDeleteVar_);
    return panel;
}

QLayout* frmCal::build_entry()
{
    txtExpression_ = named(new expression_entry(this), "txtExpression");
    txtExpression_->setAccessibleName(tr("Expression"));
    txtExpression_->setPlaceholderText(tr("Expression, or name = expression"));
    lblCheck_ = named(new QLabel(this), "lblCheck");
    // The checker quotes the typed text, which must not be interpreted as markup.
    lblCheck_->setTextFormat(Qt::PlainText);
    lblCheck_->setWordWrap(true);
    lblCheck_->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
    lblCheck_->setAlignment(Qt::AlignTop | Qt::AlignLeft);

    auto* column = without_margins(new QVBoxLayout);
    column->setSpacing(line_unit(*this) / 4);
    column->addWidget(txtExpression_);
    column->addWidget(lblCheck_);
    return column;
}

QLayout* frmCal::build_answer()
{
    txtAnswer_ = named(new QLineEdit(this), "txtAnswer");
    txtAnswer_->setReadOnly(true);
    txtAnswer_->setAlignment(Qt::AlignRight);
    cmdCopyAnswer_ = named(new QPushButton(program_icon("copy"), QString(), this), "cmdCopyAnswer");
    cmdCopyAnswer_->setAccessibleName(tr("Copy the answer"));
    cmdCopyAnswer_->setToolTip(tr("Copy the answer (F9)"));
    cmbformat_ = named(new QComboBox(this), "cmbformat");
    cmbformat_->setEditable(true);
    cmbformat_->setInsertPolicy(QComboBox::NoInsert);
    cmbformat_->setCompleter(nullptr);
    for (const std::string_view mask : answer_masks())
        cmbformat_->addItem(to_qstring(mask));
    cmbformat_->setCurrentIndex(-1);
    cmbformat_->lineEdit()->setPlaceholderText(tr("all digits"));
    cmbformat_->lineEdit()->setClearButtonEnabled(true);
    cmbformat_->lineEdit()->setAccessibleName(tr("Format"));
    cmbformat_->lineEdit()->setMaxLength(40);
    cmbformat_->setToolTip(
        tr("How answers are shown: 0 is a digit, # one that may be missing. Empty shows all digits."));

    auto* answer_row = without_margins(new QHBoxLayout);
    answer_row->setSpacing(line_unit(*this) / 4);
    answer_row->addWidget(txtAnswer_);
    answer_row->addWidget(cmdCopyAnswer_);
    auto* form = without_margins(new QFormLayout);
    form->setSpacing(line_unit(*this) / 2);
    form->setFieldGrowthPolicy(QFormLayout::AllNonFixedFieldsGrow);
    auto* caption = new QLabel(tr("&Answer"), this);
    caption->setBuddy(txtAnswer_);
    form->addRow(caption, answer_row);
    form->addRow(tr("&Format"), cmbformat_);
    return form;
}

QLayout* frmCal::build_buttons()
{
    cmdCalculate_ = named(new QPushButton(tr("Solve expression (F5)"), this), "cmdCalculate");
    cmdCleanExpr_ = named(new QPushButton(tr("Clear expression"), this), "cmdCleanExpr");
    chkMore_ = named(new QCheckBox(tr("&More"), this), "chkMore");
    chkMore_->setToolTip(tr("Functions, the history, options and help"));
    chkOnTop_ = new on_top_check(this);
    cmdExit_ = named(new QPushButton(tr("E&xit"), this), "cmdExit");

    const int unit = line_unit(*this);
    auto* solving = without_margins(new QHBoxLayout);
    solving->setSpacing(unit / 2);
    solving->addWidget(cmdCalculate_, 1);
    solving->addWidget(cmdCleanExpr_);
    auto* rest = without_margins(new QHBoxLayout);
    rest->setSpacing(unit);
    rest->addWidget(chkMore_);
    rest->addWidget(chkOnTop_);
    rest->addStretch();
    rest->addWidget(cmdExit_);
    auto* rows = without_margins(new QVBoxLayout);
    rows->setSpacing(unit / 2);
    rows->addLayout(solving);
    rows->addLayout(rest);
    return rows;
}

QWidget* frmCal::build_functions_page()
{
    auto* page = new QWidget(tabMore_);
    lstFuncs_ = named(new QListWidget(page), "lstFuncs");
    lstFuncs_->setAccessibleName(tr("Functions"));
    lstFuncs_->setToolTip(tr("A double click or Enter puts the function into the expression"));
    const QStringList names = to_qstring(function_list()).split(QLatin1Char(' '), Qt::SkipEmptyParts);
    lstFuncs_->addItems(names);
    // Columns as wide as the longest name.
    int widest = 0;
    for (const QString& name : names)
        widest = std::max(widest, lstFuncs_->fontMetrics().horizontalAdvance(name));
    const int unit = line_unit(*this);
    lstFuncs_->setGridSize(QSize(widest + unit, unit * 5 / 4));
    lstFuncs_->setFlow(QListView::LeftToRight);
    lstFuncs_->setWrapping(true);
    lstFuncs_->setResizeMode(QListView::Adjust);
    // As high as the other pages; the rest is scrolled.
    lstFuncs_->setMinimumHeight(unit * 6);
    lstFuncs_->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Ignored);
    auto* column = without_margins(new QVBoxLayout(page));
    column->addWidget(lstFuncs_);
    return page;
}

QWidget* frmCal::build_history_page()
{
    auto* page = new QWidget(tabMore_);
    cmdCopy_ = named(new QPushButton(tr("Copy"), page), "cmdCopy");
    cmdCopy_->setToolTip(tr("Copy what is selected in the history"));
    cmdCopyAll_ = named(new QPushButton(tr("Copy All"), page), "cmdCopyAll");
    cmdCopyAll_->setToolTip(tr("Copy the whole history"));
    cmdClearHistory_ = named(new QPushButton(tr("Clear"), page), "cmdClearHistory");
    cmdClearHistory_->setToolTip(tr("Forget all lines of the history; variables stay"));
    chkWordWrap_ = named(new QCheckBox(tr("Word Wrap"), page), "chkWordWrap");
    chkWordWrap_->setChecked(true);
    cmdFont_ = named(new QPushButton(tr("Change Font..."), page), "cmdFont");

    auto* copying = without_margins(new QHBoxLayout);
    copying->addWidget(cmdCopy_);
    copying->addWidget(cmdCopyAll_);
    copying->addWidget(cmdClearHistory_);
    copying->addStretch();
    auto* looking = without_margins(new QHBoxLayout);
    looking->addWidget(cmdFont_);
    looking->addSpacing(line_unit(*this) / 2);
    looking->addWidget(chkWordWrap_);
    looking->addStretch();
    auto* rows = new QVBoxLayout(page);
    rows->addLayout(copying);
    rows->addLayout(looking);
    rows->addStretch();
    return page;
}

QWidget* frmCal::build_options_page()
{
    auto* page = new QWidget(tabMore_);
    auto* group = new QGroupBox(tr("Return used for"), page);
    optReturnSolve_ = named(new QRadioButton(tr("Solve"), group), "optReturnSolve");
    optReturnSolve_->setToolTip(tr("Shift+Return begins a new line"));
    optReturnSolve_->setChecked(true);
    optReturnLineFeed_ = named(new QRadioButton(tr("Line Feed"), group), "optReturnLineFeed");
    optReturnLineFeed_->setToolTip(tr("F5 or Ctrl+Return solves"));
    auto* choices = new QHBoxLayout(group);
    choices->addWidget(optReturnSolve_);
    choices->addWidget(optReturnLineFeed_);
    choices->addStretch();
    auto* rows = new QVBoxLayout(page);
    rows->addWidget(group);
    rows->addStretch();
    return page;
}

QWidget* frmCal::build_help_page()
{
    auto* page = new QWidget(tabMore_);
    auto* rows = new QVBoxLayout(page);
    const auto add = [&](const char* name, const QString& text) {
        auto* label = named(new QLabel(text, page), name);
        label->setTextFormat(Qt::PlainText);
        label->setTextInteractionFlags(Qt::TextSelectableByMouse);
        label->setWordWrap(true);
        rows->addWidget(label);
    };
    add("lblIf", QStringLiteral(" if (condition) then (expression 1) else (expression 2)"));
    add("lblComparisons", QStringLiteral(" >  <  >=  =>  <=  =<  ==  <>  ><"));
    add("lblOperators", QStringLiteral(" +  -  *  /  ^  and  or"));
    add("lblKeys", tr(" Up and Down bring earlier lines back, F5 solves, F9 copies the answer."));
    rows->addStretch();

    // A page whose height depends on its width would change the height of the tabs when it is shown.
    auto* area = named(new QScrollArea(tabMore_), "areaHelp");
    area->setAccessibleName(tr("Help"));
    area->setWidget(page);
    area->setWidgetResizable(true);
    area->setFrameShape(QFrame::NoFrame);
    area->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    area->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Ignored);
    area->viewport()->setAutoFillBackground(false);
    page->setAutoFillBackground(false);
    return area;
}

void frmCal::set_tab_order()
{
    const QList<QWidget*> order = {
        txtExpression_, cmdCalculate_,    cmdCleanExpr_, txtAnswer_,   cmdCopyAnswer_,  cmbformat_,
        chkMore_,       chkOnTop_,        cmdExit_,      tabMore_,     lstFuncs_,       cmdCopy_,
        cmdCopyAll_,    cmdClearHistory_, cmdFont_,      chkWordWrap_, optReturnSolve_, optReturnLineFeed_,
        txtHistory_,    lstVars_,         cmdModifyVar_, cmdDeleteVar_};
    for (qsizetype i = 1; i < order.size(); ++i)
        setTabOrder(order[i - 1], order[i]);
}

} // namespace kelvarin
