// SPDX-License-Identifier: MIT
#pragma once

#include "reg/compare_fits.h"
#include "reg/diagnostic_graphs.h"

#include <QMenu>

#include <memory>
#include <vector>

namespace kelvarin
{

class frmRGT;

/// "mnuLastFit": what can be asked about the last fit beyond its report. The answers are jobs of the window, which
/// open reports and graphs beside it.
class last_fit_menu : public QMenu
{
    Q_OBJECT

public:
    explicit last_fit_menu(frmRGT& window, QWidget* parent = nullptr);

    /// Takes over a run that gave a report: its last fit is the one that is asked about.
    void add_run(std::shared_ptr<const solved_fit> run);

private:
    void build_diagnostics();
    void add_diagnostic(const QString& caption, const char* name, std::vector<diagnostic> wanted);
    void show_comparisons();
    bool can_ask() const;
    std::shared_ptr<const solved_fit> last() const { return runs_.back(); }

    void mnuMoreStatistics_Click();
    void mnuPolish_Click();
    void show_diagnostics(const std::vector<diagnostic>& wanted);
    void show_diagnostic_graph(const graph_start& start);
    void compare_with(const chosen_fit& other);

    frmRGT& window_;
    /// The latest ones, the last one behind.
    std::vector<std::shared_ptr<const solved_fit>> runs_;
    QMenu* diagnostics_ = nullptr;
    QMenu* comparisons_ = nullptr;
};

} // namespace kelvarin
