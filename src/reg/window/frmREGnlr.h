// SPDX-License-Identifier: MIT
#pragma once

#include "desktop/desktop_context.h"

#include <QDialog>

#include <string>
#include <vector>

class QComboBox;
class QLabel;

namespace kelvarin
{

class expression_edit;

/// The dialog in which the model of a nonlinear regression is entered: the dependent variable and an expression.
class frmREGnlr : public QDialog
{
    Q_OBJECT

public:
    /// `columns`: the names offered as dependent variables. `model`: the present one, "y = a*x", or an empty text.
    frmREGnlr(desktop_context& context, const std::vector<std::string>& columns, const std::string& model,
              QWidget* parent);

signals:
    /// Done: "y = a*x". The dialog closes afterwards.
    void model_entered(const std::string& model);

private:
    void build_ui(const std::vector<std::string>& columns);
    void show_model(const std::string& model);
    void show_fault();
    void cmdDone_Click();

    desktop_context& context_;
    QComboBox* cmbDepVar_ = nullptr;
    expression_edit* txtModel_ = nullptr;
    QLabel* lblFault_ = nullptr;
};

} // namespace kelvarin
