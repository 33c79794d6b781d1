// SPDX-License-Identifier: MIT
#pragma once

#include "desktop/desktop_context.h"
#include "tools/calculator.h"
#include "tools/calculator_history.h"

#include <QTimer>
#include <QWidget>

#include <optional>
#include <string>

class QCheckBox;
class QComboBox;
class QLabel;
class QLayout;
class QLineEdit;
class QListWidget;
class QPushButton;
class QRadioButton;
class QTabWidget;

namespace kelvarin
{

class expression_entry;
class history_view;
class on_top_check;

/// "Calculator": lines are typed, solved and listed in a history; their variables are kept. A top-level window, beside
/// the main window or alone.
class frmCal : public QWidget
{
    Q_OBJECT

public:
    explicit frmCal(desktop_context& context, QWidget* parent = nullptr);

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    void build_ui();
    QWidget* build_transcript();
    QWidget* build_variables();
    QLayout* build_entry();
    QLayout* build_answer();
    QLayout* build_buttons();
    QWidget* build_functions_page();
    QWidget* build_history_page();
    QWidget* build_options_page();
    QWidget* build_help_page();
    void connect_controls();
    void set_tab_order();

    void cmdCalculate_Click();
    void cmdCleanExpr_Click();
    void cmdCopy_Click();
    void cmdCopyAll_Click();
    void cmdClearHistory_Click();
    void cmdFont_Click();
    void cmdDeleteVar_Click();
    void cmdModifyVar_Click();
    void chkMore_Click();
    void chkWordWrap_Click();
    void lstFuncs_DblClick();
    void cmdCopyAnswer_Click();

    void recall(const std::optional<std::string>& line);
    void recall_entry(int entry);
    void check_expression_text();
    void show_answer();
    void show_variables();
    void enable_controls();
    void set_text_font(const QFont& font);
    void tint_controls();
    /// The name of the variable selected in the list; empty if there is none.
    std::string selected_variable() const;
    std::string answer_mask() const;

    desktop_context& context_;
    calculator calculator_;
    calculator_history history_;
    std::optional<double> answer_;
    /// Runs from the last change of the text until it is checked.
    QTimer check_delay_;

    history_view* txtHistory_ = nullptr;
    QLabel* lblNum_vars_ = nullptr;
    QListWidget* lstVars_ = nullptr;
    QPushButton* cmdModifyVar_ = nullptr;
    QPushButton* cmdDeleteVar_ = nullptr;
    expression_entry* txtExpression_ = nullptr;
    QLabel* lblCheck_ = nullptr;
    QLineEdit* txtAnswer_ = nullptr;
    QPushButton* cmdCopyAnswer_ = nullptr;
    QComboBox* cmbformat_ = nullptr;
    QPushButton* cmdCalculate_ = nullptr;
    QPushButton* cmdCleanExpr_ = nullptr;
    QCheckBox* chkMore_ = nullptr;
    on_top_check* chkOnTop_ = nullptr;
    QPushButton* cmdExit_ = nullptr;
    QTabWidget* tabMore_ = nullptr;
    QListWidget* lstFuncs_ = nullptr;
    QPushButton* cmdCopy_ = nullptr;
    QPushButton* cmdCopyAll_ = nullptr;
    QPushButton* cmdClearHistory_ = nullptr;
    QCheckBox* chkWordWrap_ = nullptr;
    QPushButton* cmdFont_ = nullptr;
    QRadioButton* optReturnSolve_ = nullptr;
    QRadioButton* optReturnLineFeed_ = nullptr;
};

} // namespace kelvarin
