// SPDX-License-Identifier: MIT
#include "reg/window/analysis_page.h"

#include "desktop/elided_label.h"
#include "desktop/qt_text.h"
#include "platform/run_time_text.h"
#include "platform/text_file.h"
#include "reg/value_table.h"
#include "reg/window/analysis_plot.h"
#include "reg/window/column_lists.h"
#include "reg/window/frmRGT.h"
#include "shell/general_lib.h"

#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPointer>
#include <QTabWidget>

#include <cmath>
#include <utility>

namespace kelvarin
{

namespace
{

QString shown_number(double value)
{
    return to_qstring(trimmed(format_number(value)));
}

} // namespace

analysis_page::analysis_page(table_document& table, frmRGT& window, QWidget* parent)
    : table_page(table, parent), window_(window)
{
    build_ui();
    clear_result();
}

analysis_kind analysis_page::kind() const
{
    return static_cast<analysis_kind>(sstAnalysis_->currentIndex());
}

analysis_columns analysis_page::columns() const
{
    return {chosen_column(*cmbIndepVar_), chosen_column(*cmbDepVar_)};
}

analysis_request analysis_page::request() const
{
    const request_controls& asked = controls();
    return {kind(), columns(), static_cast<std::size_t>(asked.method->currentIndex()), to_text(asked.at->text()),
            asked.to ? to_text(asked.to->text()) : std::string()};
}

void analysis_page::show_table()
{
    if (shown_ && *shown_ == table().content()) return;
    shown_ = table().content();
    initialize_analysis();
}

void analysis_page::initialize_analysis()
{
    const table_reader reader(table().content());
    const std::vector<int> listed = listed_columns(reader);
    const bool too_many = reader.started_columns().size() > most_listed_columns;
    if (too_many && !too_many_told_)
        window_.context().user.show(this, analysis_failure_box(runtime_failure(failure_number::subscript)));
    too_many_told_ = too_many;
    fill_column_list(*cmbIndepVar_, reader, listed, 0);
    fill_column_list(*cmbDepVar_, reader, listed, 1);
    columns_changed();
}

void analysis_page::columns_changed()
{
    clear_result();
    update_analysis_labels();
    const table_reader reader(table().content());
    lblN_->setText(QStringLiteral("N = %1").arg(analysis_row_count(reader, columns())));
    const std::string x_name = to_text(cmbIndepVar_->currentText());
    const std::string y_name = to_text(cmbDepVar_->currentText());
    try {
        analysis_points points = load_analysis_data(reader, columns());
        if (sort_analysis_data(points)) points = {};
        plot_->show_points(points, x_name, y_name);
    } catch (const runtime_failure&) {
        // The request will say what is wrong with the points.
        plot_->show_points({}, x_name, y_name);
    }
}

void analysis_page::update_analysis_labels()
{
    const QString independent = cmbIndepVar_->currentText();
    const QString dependent = cmbDepVar_->currentText();
    lblIndepVal_->setText(independent + QStringLiteral(" = "));
    lblIndepVarValue_->setText(independent + QStringLiteral(" = "));
    lblDepVal_->setText(dependent + QStringLiteral(" = "));
    lblDFDX_->setText(to_qstring(derivative_label(to_text(dependent), to_text(independent))));
    lblFDX_->setText(tr("Integral of %1").arg(dependent) + QStringLiteral(" d ") + independent);
}

void analysis_page::clear_result()
{
    for (const request_controls& each : requests_)
        each.result->clear();
    for (QLabel* label : std::initializer_list<QLabel*>{lblErr_, lblDev_, lblWarning_, lblOthers_})
        label->hide();
    plot_->show_marks({});
}

void analysis_page::show_result(const analysis_outcome& outcome)
{
    controls().result->setText(shown_number(outcome.value()));
    controls().result->setCursorPosition(0);
    lblErr_->setText(outcome.error ? to_qstring(error_text(*outcome.error)) : QString());
    lblErr_->setVisible(outcome.error.has_value());
    lblDev_->setText(to_qstring(deviation_text(outcome.deviation)));
    lblDev_->show();
    lblWarning_->setVisible(outcome.warns);
    QStringList others;
    const auto& methods = analysis_methods(outcome.kind);
    for (std::size_t method = 0; method < methods.size(); ++method)
        if (method != outcome.chosen)
            others.append(to_qstring(methods[method]) + QStringLiteral(" = ") + shown_number(outcome.values[method]));
    lblOthers_->show_text(others.join(QStringLiteral("     ")));
    lblOthers_->show();
    std::vector<double> marks;
    for (const QLineEdit* field : {controls().at, controls().to})
        if (field) marks.push_back(numeric_value(to_text(field->text())).value_or(NAN));
    plot_->show_marks(std::move(marks));
}

void analysis_page::solve()
{
    clear_result();
    window_.start_run([content = table().content(),
                       asked = request()](run_listener& listener) { return solve_analysis(content, asked, listener); },
                      [this](const analysis_outcome& outcome) { show_outcome(outcome); });
}

void analysis_page::show_outcome(const analysis_outcome& outcome)
{
    if (window_.is_closing() || outcome.stopped) return;
    if (outcome.has_report) return show_result(outcome);
    const QPointer<QLineEdit> field(controls().at);
    if (!window_.show_boxes(outcome.boxes) || !field) return;
    field->setFocus();
    field->selectAll();
}

void analysis_page::cmdTableOfValues_Click()
{
    constexpr int least = 2;
    constexpr int most = 10000;
    desktop_context& context = window_.context();
    const auto given = context.user.input(this, QStringLiteral("KELVARIN"),
                                          tr("How many points? (%1-%2)").arg(least).arg(most), QStringLiteral("21"));
    if (!given || given->trimmed().isEmpty()) return;
    bool is_whole = false;
    const int count = given->trimmed().toInt(&is_whole);
    if (!is_whole || count < least || count > most) {
        context.user.show(this, {"A whole number from 2 to 10000 is expected.", box_icon::exclamation});
        return;
    }
    window_.start_run([content = table().content(), asked = request(),
                       count](run_listener& listener) { return fill_table_of_values(content, asked, count, listener); },
                      [this](value_table filled) {
                          if (window_.is_closing() || filled.stopped) return;
                          if (!window_.show_boxes(filled.boxes) || !filled.has_report) return;
                          table().fill_columns(std::move(filled.content));
                          emit table_filled(filled.column);
                      });
}

} // namespace kelvarin
