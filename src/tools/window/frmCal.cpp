// SPDX-License-Identifier: MIT
#include "tools/window/frmCal.h"

#include "desktop/look.h"
#include "desktop/qt_text.h"
#include "platform/run_time_text.h"
#include "shell/general_lib.h"
#include "tools/window/control_parts.h"
#include "tools/window/expression_entry.h"
#include "tools/window/history_view.h"

#include <QCheckBox>
#include <QComboBox>
#include <QKeyEvent>
#include <QLabel>
#include <QLayout>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QRadioButton>
#include <QScreen>
#include <QShortcut>
#include <QTabWidget>

#include <algorithm>
#include <utility>

namespace kelvarin
{

namespace
{

constexpr int check_delay = 333; // milliseconds

/// The fixed-width font of the calculator's texts.
QFont transcript_font(const QWidget& window)
{
    QFont font = fixed_font(window);
    font.setFamily(QStringLiteral("Courier New"));
    return font;
}

template <class Slot> void on_key(QWidget* widget, Qt::Key key, frmCal* window, Slot slot)
{
    QObject::connect(new QShortcut(QKeySequence(key), widget, nullptr, nullptr, Qt::WidgetShortcut),
                     &QShortcut::activated, window, slot);
}

} // namespace

frmCal::frmCal(desktop_context& context, QWidget* parent) : QWidget(parent, Qt::Window), context_(context)
{
    calculator_.generator().seed(static_cast<std::uint32_t>(context_.clock.whole_seconds()));
    check_delay_.setSingleShot(true);
    check_delay_.setInterval(check_delay);
    build_ui();
    set_text_font(transcript_font(*this));
    tint_controls();
    connect_controls();
    set_tab_order();
    enable_controls();
    txtExpression_->setFocus();
}

void frmCal::connect_controls()
{
    connect(&check_delay_, &QTimer::timeout, this, &frmCal::check_expression_text);
    connect(txtExpression_, &QTextEdit::textChanged, &check_delay_, qOverload<>(&QTimer::start));
    connect(txtExpression_, &expression_entry::solve_requested, this, &frmCal::cmdCalculate_Click);
    connect(txtExpression_, &expression_entry::earlier_requested, this,
            [this] { recall(history_.earlier(on_one_line(txtExpression_->expression()))); });
    connect(txtExpression_, &expression_entry::later_requested, this,
            [this] { recall(history_.later(on_one_line(txtExpression_->expression()))); });
    connect(txtHistory_, &history_view::entry_chosen, this, &frmCal::recall_entry);
    connect(txtHistory_, &history_view::copy_requested, this, &frmCal::cmdCopy_Click);
    connect(txtHistory_, &QTextEdit::selectionChanged, this, &frmCal::enable_controls);

    connect(cmdCalculate_, &QPushButton::clicked, this, &frmCal::cmdCalculate_Click);
    connect(cmdCleanExpr_, &QPushButton::clicked, this, &frmCal::cmdCleanExpr_Click);
    connect(cmdExit_, &QPushButton::clicked, this, &QWidget::close);
    connect(chkMore_, &QCheckBox::toggled, this, &frmCal::chkMore_Click);
    connect(cmdCopyAnswer_, &QPushButton::clicked, this, &frmCal::cmdCopyAnswer_Click);
    connect(cmbformat_, &QComboBox::editTextChanged, this, &frmCal::show_answer);

    connect(cmdCopy_, &QPushButton::clicked, this, &frmCal::cmdCopy_Click);
    connect(cmdCopyAll_, &QPushButton::clicked, this, &frmCal::cmdCopyAll_Click);
    connect(cmdClearHistory_, &QPushButton::clicked, this, &frmCal::cmdClearHistory_Click);
    connect(cmdFont_, &QPushButton::clicked, this, &frmCal::cmdFont_Click);
    connect(chkWordWrap_, &QCheckBox::toggled, this, &frmCal::chkWordWrap_Click);
    connect(optReturnSolve_, &QRadioButton::toggled, txtExpression_, &expression_entry::set_return_solves);

    connect(lstVars_, &QListWidget::itemSelectionChanged, this, &frmCal::enable_controls);
    connect(cmdDeleteVar_, &QPushButton::clicked, this, &frmCal::cmdDeleteVar_Click);
    connect(cmdModifyVar_, &QPushButton::clicked, this, &frmCal::cmdModifyVar_Click);
    // Not itemActivated, which on some desktops is emitted by a single click.
    connect(lstVars_, &QListWidget::itemDoubleClicked, this, &frmCal::cmdModifyVar_Click);
    connect(lstFuncs_, &QListWidget::itemDoubleClicked, this, &frmCal::lstFuncs_DblClick);
    for (const Qt::Key enter : {Qt::Key_Return, Qt::Key_Enter}) {
        on_key(lstVars_, enter, this, &frmCal::cmdModifyVar_Click);
        on_key(lstFuncs_, enter, this, &frmCal::lstFuncs_DblClick);
    }
    on_key(lstVars_, Qt::Key_Delete, this, &frmCal::cmdDeleteVar_Click);
}

// ------------------------------------------------------------------------------------------- solving

void frmCal::cmdCalculate_Click()
{
    const std::string text = txtExpression_->expression();
    const calculator_answer solved = calculator_.solve_line(text);
    txtExpression_->setFocus();
    if (solved.refusal) {
        context_.user.show(this, *solved.refusal);
        if (solved.refusal->fatal) context_.frame.end_program();
        return;
    }
    answer_ = solved.value;
    show_answer();
    history_.add({on_one_line(text), to_text(txtAnswer_->text())});
    txtHistory_->add_entry(history_.entries().back());
    if (!solved.variable.empty()) show_variables();
    check_expression_text();
    enable_controls();
    // Selected, so that typing replaces it.
    txtExpression_->selectAll();
}

void frmCal::cmdCleanExpr_Click()
{
    txtExpression_->replace_expression("");
    txtExpression_->setFocus();
}

void frmCal::check_expression_text()
{
    check_delay_.stop();
    const std::optional<calculator_fault> fault = calculator_.fault_of(txtExpression_->expression());
    lblCheck_->setText(fault ? to_qstring(fault->message) : QString());
    lblCheck_->setToolTip(tip_text(lblCheck_->text()));
    txtExpression_->mark_fault(fault ? fault->place : std::nullopt);
}

void frmCal::show_answer()
{
    if (!answer_) return;
    txtAnswer_->setText(to_qstring(answer_text(*answer_, answer_mask())));
}

std::string frmCal::answer_mask() const
{
    return to_text(cmbformat_->currentText());
}

void frmCal::recall(const std::optional<std::string>& line)
{
    if (line) txtExpression_->replace_expression(*line);
}

void frmCal::recall_entry(int entry)
{
    history_.end_walk();
    recall(history_.entries().at(static_cast<std::size_t>(entry)).line);
    txtExpression_->setFocus();
}

void frmCal::lstFuncs_DblClick()
{
    const QListWidgetItem* chosen = lstFuncs_->currentItem();
    if (!chosen) return;
    txtExpression_->insert_at_caret(chosen->text() + QStringLiteral("()"), 1);
    txtExpression_->setFocus();
}

// ----------------------------------------------------------------------------------------- variables

std::string frmCal::selected_variable() const
{
    const QList<QListWidgetItem*> selected = lstVars_->selectedItems();
    return selected.isEmpty() ? std::string() : to_text(selected.front()->data(Qt::UserRole).toString());
}

void frmCal::show_variables()
{
    const std::string selected = selected_variable();
    lstVars_->clear();
    const clsParse& variables = std::as_const(calculator_).variables();
    for (const std::string& name : variables.get_all_vars()) {
        const std::string line = name + " = " + format_number(variables.get_var(name).value());
        auto* item = new QListWidgetItem(to_qstring(line), lstVars_);
        item->setData(Qt::UserRole, to_qstring(name));
        item->setToolTip(to_qstring(name + " = " + plain_text(variables.get_var(name).value())));
        if (name == selected) lstVars_->setCurrentItem(item);
    }
    lblNum_vars_->setText(QString::number(variables.count_variables()));
    enable_controls();
}

void frmCal::cmdDeleteVar_Click()
{
    const std::string name = selected_variable();
    if (name.empty()) return;
    const user_question asked{.text = "Are you sure you want to remove the variable '" + name + "' ?"};
    if (context_.user.ask(this, asked) != user_answer::yes) return;
    if (!calculator_.variables().Remove_var(name)) {
        context_.user.show(this, {.text = "Variable not removed."});
        return;
    }
    show_variables();
    check_expression_text();
}

void frmCal::cmdModifyVar_Click()
{
    const std::string name = selected_variable();
    if (name.empty()) return;
    const std::string present = plain_text(calculator_.variables().get_var(name).value_or(0.0));
    const std::optional<QString> given =
        context_.user.input(this, QStringLiteral("Modify Variable Value"),
                            to_qstring("Enter new value for " + name + " = "), to_qstring(present));
    if (!given) return;
    if (const auto refusal = calculator_.set_variable(name, to_text(*given))) {
        context_.user.show(this, *refusal);
        return;
    }
    show_variables();
}

// ------------------------------------------------------------------------------------------- history

void frmCal::cmdCopy_Click()
{
    copy_plain_text(context_.user, txtHistory_->selected_text());
}

void frmCal::cmdCopyAll_Click()
{
    copy_plain_text(context_.user, txtHistory_->whole_text());
}

void frmCal::cmdCopyAnswer_Click()
{
    copy_plain_text(context_.user, txtAnswer_->text());
}

void frmCal::cmdClearHistory_Click()
{
    const user_question asked{.text = "This action will clear the history. Do you want to continue ?"};
    if (context_.user.ask(this, asked) != user_answer::yes) return;
    history_.clear();
    txtHistory_->show_entries({});
    enable_controls();
}

void frmCal::cmdFont_Click()
{
    if (const std::optional<QFont> chosen = context_.user.choose_font(this, txtHistory_->font()))
        set_text_font(*chosen);
}

void frmCal::set_text_font(const QFont& font)
{
    for (QWidget* text : std::initializer_list<QWidget*>{txtExpression_, txtHistory_, txtAnswer_, lstVars_})
        text->setFont(font);
    txtHistory_->setTabStopDistance(QFontMetricsF(font).averageCharWidth() * 4);
    txtExpression_->setFixedHeight(txtExpression_->sizeHint().height());
}

void frmCal::chkWordWrap_Click()
{
    txtHistory_->setLineWrapMode(chkWordWrap_->isChecked() ? QTextEdit::WidgetWidth : QTextEdit::NoWrap);
}

// -------------------------------------------------------------------------------------------- window

void frmCal::chkMore_Click()
{
    // The window grows and shrinks below the pages, so that nothing above them moves.
    const int rest = height() - layout()->totalMinimumSize().height();
    tabMore_->setVisible(chkMore_->isChecked());
    // Updates the minimum height of the window.
    layout()->activate();
    if (isMaximized() || isFullScreen()) return;
    const int wanted = rest + layout()->totalMinimumSize().height();
    resize(width(), std::min(wanted, screen()->availableGeometry().height()));
}

void frmCal::enable_controls()
{
    const bool has_variable = !selected_variable().empty();
    cmdDeleteVar_->setEnabled(has_variable);
    cmdModifyVar_->setEnabled(has_variable);
    const bool has_lines = !history_.entries().empty();
    cmdCopyAll_->setEnabled(has_lines);
    cmdClearHistory_->setEnabled(has_lines);
    cmdCopy_->setEnabled(txtHistory_->textCursor().hasSelection());
    cmdCopyAnswer_->setEnabled(answer_.has_value());
}

void frmCal::tint_controls()
{
    lblCheck_->setPalette(quiet_palette(palette()));
    lblCheck_->setFixedHeight(QFontMetrics(lblCheck_->font()).lineSpacing() * 2);
    cmdCalculate_->setPalette(solving_palette(palette()));
}

void frmCal::changeEvent(QEvent* event)
{
    QWidget::changeEvent(event);
    if ((event->type() == QEvent::PaletteChange || event->type() == QEvent::FontChange) && cmdCalculate_)
        tint_controls();
}

void frmCal::keyPressEvent(QKeyEvent* event)
{
    // Not QShortcuts: F5 is a shortcut of the main window.
    if (event->modifiers() == Qt::NoModifier && event->key() == Qt::Key_F5) return cmdCalculate_Click();
    if (event->modifiers() == Qt::NoModifier && event->key() == Qt::Key_F9) return cmdCopyAnswer_Click();
    QWidget::keyPressEvent(event);
}

} // namespace kelvarin
