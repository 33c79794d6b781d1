// SPDX-License-Identifier: MIT
#pragma once

#include "shell/document/recovery.h"

#include <QFrame>

#include <map>
#include <vector>

class QGridLayout;

namespace kelvarin
{

/// A bar with the unsaved problems of ended programs. Each can be opened, kept for the next start, or discarded;
/// closing the bar keeps them all. It deletes itself when all are decided.
class frmRecovery : public QFrame
{
    Q_OBJECT

public:
    frmRecovery(std::vector<recovery_store::found_problem> found, QWidget* parent);

    /// Removes the row of a problem that is decided.
    void remove(int slot);

signals:
    void open_asked(const kelvarin::recovery_store::found_problem& problem);
    void discard_asked(const kelvarin::recovery_store::found_problem& problem);

private:
    void build_ui();
    void add_row(QGridLayout& grid, int row, const recovery_store::found_problem& problem);

    std::vector<recovery_store::found_problem> found_;
    /// The controls of each slot's row.
    std::map<int, QList<QWidget*>> rows_;
};

} // namespace kelvarin
