// SPDX-License-Identifier: MIT
#include "reg/window/scatter_page.h"

#include "desktop/controls.h"
#include "desktop/look.h"
#include "desktop/qt_text.h"
#include "graph/window/frmGraph.h"
#include "reg/column_analysis.h"
#include "reg/scatter_start.h"
#include "reg/window/column_lists.h"

#include <QCheckBox>
#include <QComboBox>
#include <QGridLayout>
#include <QLabel>
#include <QListWidget>
#include <QSet>

namespace kelvarin
{

scatter_page::scatter_page(desktop_context& context, table_document& table, problem_window& window, QWidget* parent)
    : table_page(table, parent), context_(context), window_(window)
{
    const int unit = line_unit(*this);
    auto* grid = new QGridLayout(this);
    grid->setContentsMargins(0, 0, 0, 0);
    grid->setHorizontalSpacing(unit);
    const auto add = [&](const QString& caption, QWidget* control, int column) {
        auto* label = new QLabel(caption);
        label->setBuddy(control);
        control->setAccessibleName(caption);
        grid->addWidget(label, 0, column);
        grid->addWidget(control, 1, column, Qt::AlignTop);
    };
    cmbGraphXVar_ = named(new QComboBox, "cmbGraphXVar");
    cmbGraphXVar_->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    cmbGraphXVar_->setMinimumContentsLength(12);
    lstGraphYVars_ = named(new QListWidget, "lstGraphYVars");
    lstGraphYVars_->setSelectionMode(QAbstractItemView::ExtendedSelection);
    lstGraphYVars_->setFixedHeight(unit * 6);
    lstGraphYVars_->setToolTip(tr("Ctrl or Shift with a click or an arrow selects several columns"));
    add(tr("x axis"), cmbGraphXVar_, 0);
    add(tr("Columns to draw"), lstGraphYVars_, 1);
    auto* boxes = new QVBoxLayout;
    chkConnected_ = named(new QCheckBox(tr("Lines between the points")), "chkConnected");
    chkDraw_points_ = named(new QCheckBox(tr("Markers at the points")), "chkDraw_points");
    for (QCheckBox* box : {chkConnected_, chkDraw_points_}) {
        box->setChecked(true);
        boxes->addWidget(box);
    }
    boxes->addStretch(1);
    grid->addLayout(boxes, 1, 2);
    grid->setColumnStretch(3, 1);
}

void scatter_page::show_table()
{
    const table_reader reader(table().content());
    const std::vector<int> columns = listed_columns(reader);
    const bool too_many = reader.started_columns().size() > most_listed_columns;
    if (too_many && !too_many_told_)
        context_.user.show(this, analysis_failure_box(runtime_failure(failure_number::subscript)));
    too_many_told_ = too_many;
    fill_column_list(*cmbGraphXVar_, reader, columns, 0);
    QSet<QString> selected;
    for (const QListWidgetItem* item : lstGraphYVars_->selectedItems())
        selected.insert(item->text());
    lstGraphYVars_->clear();
    for (const int column : columns) {
        auto* item = new QListWidgetItem(to_qstring(reader.name(column)), lstGraphYVars_);
        item->setData(Qt::UserRole, column);
        item->setSelected(selected.contains(item->text()));
    }
    if (lstGraphYVars_->selectedItems().isEmpty() && lstGraphYVars_->count() > 0) lstGraphYVars_->setCurrentRow(0);
}

void scatter_page::solve()
{
    scatter_request request;
    const std::optional<int> x = chosen_column(*cmbGraphXVar_);
    if (!x) return context_.user.show(this, {"Select the column of the x axis.", box_icon::exclamation});
    request.x = *x;
    for (int row = 0; row < lstGraphYVars_->count(); ++row)
        if (const QListWidgetItem* item = lstGraphYVars_->item(row); item->isSelected())
            request.y.push_back(item->data(Qt::UserRole).toInt());
    request.connected = chkConnected_->isChecked();
    request.points = chkDraw_points_->isChecked();
    const scatter_outcome outcome = start_scatter_graph(table().content(), request);
    if (!outcome.has_report) return context_.user.show(this, outcome.boxes.front());
    show_new_graph(context_, window_, [&] { return scatter_graph_form_startup(outcome.start, context_.store); });
}

} // namespace kelvarin
