// SPDX-License-Identifier: MIT
#pragma once

#include "desktop/desktop_context.h"
#include "reg/matrix_work.h"
#include "reg/table/table_document.h"

#include <QMenu>

#include <functional>

namespace kelvarin
{

class problem_window;

/// "mnuMatrix": stores selections of the table as matrices, and calculates with them.
class matrix_menu : public QMenu
{
    Q_OBJECT

public:
    /// `selection` gives the selected cells once what is being typed is in the table. Reports open beside `window`.
    matrix_menu(desktop_context& context, table_document& table, problem_window& window,
                std::function<cell_range()> selection);

signals:
    /// What was stored.
    void told(const QString& text);

private:
    void store(std::optional<matrix>& stored, const QString& name);
    void solve(matrix_operation operation);
    void enable_operations();

    desktop_context& context_;
    table_document& table_;
    problem_window& window_;
    std::function<cell_range()> selection_;
    stored_matrices matrices_;
    QMenu* solve_menu_ = nullptr;
};

} // namespace kelvarin
