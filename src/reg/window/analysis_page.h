// SPDX-License-Identifier: MIT
#pragma once

#include "reg/column_analysis.h"
#include "reg/window/table_page.h"

#include <array>

class QComboBox;
class QHBoxLayout;
class QLabel;
class QLineEdit;
class QTabWidget;

namespace kelvarin
{

class analysis_plot;
class elided_label;
class frmRGT;

/// Interpolation, differentiation and integration of a column over another. Requests are jobs of the window: the
/// rational function of thousands of points takes seconds.
class analysis_page : public table_page
{
    Q_OBJECT

public:
    /// The window belongs to the table and outlives the page.
    analysis_page(table_document& table, frmRGT& window, QWidget* parent = nullptr);

    void show_table() override;
    bool can_solve() const override { return true; }
    void solve() override;

signals:
    /// Enter was pressed in a field of a value.
    void solve_asked();
    /// Columns of the table were filled, the first of them is `column`.
    void table_filled(int column);

private:
    /// The controls of one kind of request.
    struct request_controls
    {
        QLineEdit* at = nullptr;
        /// Only an integration has an upper bound.
        QLineEdit* to = nullptr;
        QComboBox* method = nullptr;
        QLineEdit* result = nullptr;
    };

    void build_ui();
    QWidget* build_columns();
    QWidget* build_requests();
    QWidget* build_findings();
    void build_interpolation();
    void build_differentiation();
    void build_integration();
    QHBoxLayout* add_request(const QString& caption);
    QLineEdit* add_value(QHBoxLayout& row, const QString& caption, const char* name);
    QComboBox* add_methods(QHBoxLayout& row, analysis_kind kind, const char* name);
    QLineEdit* add_result(QHBoxLayout& row, QLabel* label, const char* name);

    void initialize_analysis();
    void columns_changed();
    void update_analysis_labels();
    void clear_result();
    void show_outcome(const analysis_outcome& outcome);
    void show_result(const analysis_outcome& outcome);
    void cmdTableOfValues_Click();

    analysis_kind kind() const;
    const request_controls& controls() const { return requests_[static_cast<std::size_t>(kind())]; }
    analysis_columns columns() const;
    analysis_request request() const;

    frmRGT& window_;
    /// The table has more columns than the lists take; the box was shown.
    bool too_many_told_ = false;
    /// The table that the lists were filled from.
    std::optional<table_content> shown_;

    QComboBox* cmbDepVar_ = nullptr;
    QComboBox* cmbIndepVar_ = nullptr;
    QLabel* lblN_ = nullptr;
    QTabWidget* sstAnalysis_ = nullptr;
    std::array<request_controls, 3> requests_;
    QLabel* lblIndepVal_ = nullptr;
    QLabel* lblIndepVarValue_ = nullptr;
    QLabel* lblDepVal_ = nullptr;
    QLabel* lblDFDX_ = nullptr;
    QLabel* lblFDX_ = nullptr;
    QLabel* lblErr_ = nullptr;
    QLabel* lblDev_ = nullptr;
    elided_label* lblWarning_ = nullptr;
    elided_label* lblOthers_ = nullptr;
    analysis_plot* plot_ = nullptr;
};

} // namespace kelvarin
