// SPDX-License-Identifier: MIT
#include "reg/window/matrix_menu.h"

#include "desktop/controls.h"
#include "desktop/problem_window.h"
#include "desktop/qt_text.h"
#include "shell/window/frmSolution.h"

#include <QAction>
#include <QPointer>

#include <array>
#include <utility>

namespace kelvarin
{

matrix_menu::matrix_menu(desktop_context& context, table_document& table, problem_window& window,
                         std::function<cell_range()> selection)
    : QMenu(tr("Matri&x"), &window), context_(context), table_(table), window_(window), selection_(std::move(selection))
{
    setObjectName(QStringLiteral("mnuMatrix"));
    named(addAction(tr("Store selection as matrix A"), this, [this] { store(matrices_.a, tr("Matrix A")); }),
          "mnuMatrixItem_1");
    named(addAction(tr("Store selection as matrix B"), this, [this] { store(matrices_.b, tr("Matrix B")); }),
          "mnuMatrixItem_2");
    solve_menu_ = named(addMenu(tr("Solve matrix")), "mnuMatrixSolve");
    named(solve_menu_->menuAction(), "mnuMatrixItem_3");
    const std::array<QString, 6> captions = {tr("Explore A"), tr("A + B"),        tr("A - B"),
                                             tr("A x B"),     tr("Transpose(A)"), tr("Inverse(A)")};
    for (std::size_t i = 0; i < captions.size(); ++i) {
        QAction* const item =
            solve_menu_->addAction(captions[i], this, [this, operation = matrix_operations[i]] { solve(operation); });
        item->setObjectName(QStringLiteral("mnuMatrixSolveItem_%1").arg(i + 1));
    }
    connect(solve_menu_, &QMenu::aboutToShow, this, &matrix_menu::enable_operations);
    enable_operations();
}

void matrix_menu::enable_operations()
{
    const QList<QAction*> items = solve_menu_->actions();
    for (std::size_t i = 0; i < matrix_operations.size(); ++i)
        items[static_cast<qsizetype>(i)]->setEnabled(matrices_.allows(matrix_operations[i]));
}

void matrix_menu::store(std::optional<matrix>& stored, const QString& name)
{
    const cell_range selection = selection_();
    if (const auto refused = store_selection_as_matrix(table_.content(), selection, stored))
        return context_.user.show(&window_, *refused);
    enable_operations();
    emit told(tr("%1: %2 rows, %3 columns").arg(name).arg(stored->rows()).arg(stored->columns()));
}

void matrix_menu::solve(matrix_operation operation)
{
    const matrix_outcome outcome = run_matrix(operation, matrices_);
    const QPointer<problem_window> window(&window_);
    for (const message_box& box : outcome.boxes) {
        context_.user.show(&window_, box);
        if (!window) return;
    }
    if (!outcome.has_report) return;
    show_new_report(context_, window_, matrix_report(table_.title(), outcome, context_.clock.today()), table_.title(),
                    to_qstring(matrix_report_title));
}

} // namespace kelvarin
