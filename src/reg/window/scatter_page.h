// SPDX-License-Identifier: MIT
#pragma once

#include "desktop/desktop_context.h"
#include "reg/window/table_page.h"

class QCheckBox;
class QComboBox;
class QListWidget;

namespace kelvarin
{

class problem_window;

/// Graphs of columns over a column.
class scatter_page : public table_page
{
    Q_OBJECT

public:
    /// Graphs open beside `window`, which is that of the page.
    scatter_page(desktop_context& context, table_document& table, problem_window& window, QWidget* parent = nullptr);

    void show_table() override;
    bool can_solve() const override { return true; }
    void solve() override;

private:
    desktop_context& context_;
    problem_window& window_;
    /// The table has more columns than the lists take; the box was shown.
    bool too_many_told_ = false;
    QComboBox* cmbGraphXVar_ = nullptr;
    QListWidget* lstGraphYVars_ = nullptr;
    QCheckBox* chkConnected_ = nullptr;
    QCheckBox* chkDraw_points_ = nullptr;
};

} // namespace kelvarin
