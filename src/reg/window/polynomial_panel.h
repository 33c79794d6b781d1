// SPDX-License-Identifier: MIT
#pragma once

#include "reg/window/regression_panel.h"

class QCheckBox;
class QGroupBox;
class QLabel;
class QLineEdit;

namespace kelvarin
{

/// Polynomial regression: the variables, the degrees, integral and derivative.
class polynomial_panel : public regression_panel
{
    Q_OBJECT

public:
    explicit polynomial_panel(QWidget* parent = nullptr);

    void show_lists(const table_content& content, const regression_lists& lists) override;
    void fill(fit_request& request) const override;

private:
    QWidget* build_variables();
    QWidget* build_calculus();
    void fill_degree_list();
    void cmbPolIndepVar_Click();

    /// The table shown last.
    table_content content_;
    QComboBox* cmbPolDepVar_ = nullptr;
    QComboBox* cmbPolIndepVar_ = nullptr;
    QListWidget* lstPolDegree_ = nullptr;
    QCheckBox* chkPolOrigin_ = nullptr;
    QCheckBox* chkPolyInteg_ = nullptr;
    QCheckBox* chkPolyDeriv_ = nullptr;
    QGroupBox* fraPolyInteg_ = nullptr;
    QGroupBox* fraPolyDeriv_ = nullptr;
    QLabel* lblPolyIntegx1_ = nullptr;
    QLabel* lblPolyIntegx2_ = nullptr;
    QLabel* lblPolyDerivx_ = nullptr;
    QLineEdit* txtPolyIntegx1_ = nullptr;
    QLineEdit* txtPolyIntegx2_ = nullptr;
    QLineEdit* txtPolyIntegx_ = nullptr;
};

} // namespace kelvarin
