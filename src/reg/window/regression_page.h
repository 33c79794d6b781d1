// SPDX-License-Identifier: MIT
#pragma once

#include "reg/fit_run.h"
#include "reg/window/table_page.h"

#include <array>

class QCheckBox;
class QComboBox;
class QTabWidget;

namespace kelvarin
{

class frmRGT;
class last_fit_menu;
class nonlinear_panel;
class regression_panel;

/// Regressions on columns of the table: a panel for each, and what is to be made of a fit. The run is a job of the
/// window; what it hands over is shown in the order in which it came about.
class regression_page : public table_page
{
    Q_OBJECT

public:
    /// The window belongs to the table and outlives the page.
    regression_page(table_document& table, frmRGT& window, QWidget* parent = nullptr);

    /// `initialize_regression`.
    void show_table() override;
    bool can_solve() const override { return true; }
    /// `solve_regression`.
    void solve() override;
    void take_over_typing() override;
    QMenu* menu() const override;

private:
    QWidget* build_options();
    fit_request asked() const;
    void show_outcome(const fit_problem& problem, const fit_outcome& outcome, const settings& store, bool with_report);
    void show_graphs(const fit_problem& problem, const fit_outcome& outcome, const settings& store);

    frmRGT& window_;
    last_fit_menu* menu_ = nullptr;
    QTabWidget* sstReg_ = nullptr;
    std::array<regression_panel*, 3> panels_{};
    nonlinear_panel* nonlinear_ = nullptr;
    QCheckBox* chkGraph_ = nullptr;
    QCheckBox* chkResiduals_ = nullptr;
    QCheckBox* chkReport_ = nullptr;
    QCheckBox* chkAddModelCol_ = nullptr;
    QComboBox* cmbModelCol_ = nullptr;
    /// The table has more columns than a page can offer; the box was shown.
    bool too_many_columns_ = false;
};

} // namespace kelvarin
