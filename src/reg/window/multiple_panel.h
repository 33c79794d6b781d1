// SPDX-License-Identifier: MIT
#pragma once

#include "reg/window/regression_panel.h"

class QCheckBox;

namespace kelvarin
{

/// Multiple linear regression: the variables.
class multiple_panel : public regression_panel
{
    Q_OBJECT

public:
    explicit multiple_panel(QWidget* parent = nullptr);

    void show_lists(const table_content& content, const regression_lists& lists) override;
    void fill(fit_request& request) const override;

private:
    void cmbMLDepVar_Click();

    std::vector<std::string> numeric_columns_;
    QComboBox* cmbMLDepVar_ = nullptr;
    QListWidget* lstMLIndepVars_ = nullptr;
    QCheckBox* chkMultiLinOrigin_ = nullptr;
};

} // namespace kelvarin
