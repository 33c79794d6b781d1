// SPDX-License-Identifier: MIT
#pragma once

#include "desktop/desktop_context.h"
#include "reg/table/table_document.h"
#include "reg/window/regression_panel.h"

class QLineEdit;
class QPushButton;

namespace kelvarin
{

class elided_label;
class guess_grid;
class guess_model;

/// Nonlinear regression: the model with its names and initial guesses, which belong to the table, and the method.
class nonlinear_panel : public regression_panel
{
    Q_OBJECT

public:
    nonlinear_panel(desktop_context& context, table_document& table, QWidget* parent = nullptr);

    void show_lists(const table_content& content, const regression_lists& lists) override;
    void fill(fit_request& request) const override;
    void take_over_typing();

signals:
    /// Model or guesses were changed.
    void table_changed();

private:
    QWidget* build_model();
    QWidget* build_guesses();
    void cmdEnterNLR_Click();

    desktop_context& context_;
    table_document& table_;
    std::vector<std::string> numeric_columns_;
    QLineEdit* txtNoneLinearModel_ = nullptr;
    QPushButton* cmdEnterNLR_ = nullptr;
    QComboBox* cmbNLRMethod_ = nullptr;
    elided_label* lblDependentVar_ = nullptr;
    elided_label* lblnDependentVars_ = nullptr;
    elided_label* lblModelVars_ = nullptr;
    guess_model* guesses_ = nullptr;
    guess_grid* grdNlrGuess_ = nullptr;
};

} // namespace kelvarin
