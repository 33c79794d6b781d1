// SPDX-License-Identifier: MIT
#include "reg/window/analysis_page.h"

#include "desktop/elided_label.h"
#include "desktop/qt_text.h"
#include "platform/run_time_text.h"
#include "platform/text_file.h"
#include "reg/value_table.h"
#include "reg/window/analysis_plot.h"
#include "reg/window/column_lists.h"
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

analysis_page::analysis_page(desktop_context& context, table_document& table, QWidget* parent)
    : table_page(table, parent), context_(context)
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
    analysis_points points;
    try {
        points = load_analysis_data(reader, columns());
        if (sort_analysis_data(points)) points = {};
    } catch (const runtime_failure&) {
        points = {};
    }
    plot_->show_points(points, to_text(cmbIndepVar_->currentText()), to_text(cmbDepVar_->currentText()));
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
    const analysis_outcome outcome = solve_analysis(table().content(), request());
    if (outcome.has_report) return show_result(outcome);
    const QPointer<QLineEdit> field(controls().at);
    for (const message_box& box : outcome.boxes)
        context_.user.show(this, box);
    if (!field) return;
    field->setFocus();
    field->selectAll();
}

void analysis_page::cmdTableOfValues_Click()
{
    constexpr int least = 2;
    constexpr int most = 10000;
    const auto given = context_.user.input(this, QStringLiteral("KELVARIN"),
                                           tr("How many points? (%1-%2)").arg(least).arg(most), QStringLiteral("21"));
    if (!given || given->trimmed().isEmpty()) return;
    bool is_whole = false;
    const int count = given->trimmed().toInt(&is_whole);
    if (!is_whole || count < least || count > most) {
        context_.user.show(this, {"A whole number from 2 to 10000 is expected.", box_icon::exclamation});
        return;
    }
    table_content filled = table().content();
    const std::variant<int, message_box> result = fill_table_of_values(filled, request(), count);
    if (const auto* const refused = std::get_if<message_box>(&result)) return context_.user.show(this, *refused);
    table().fill_columns(std::move(filled));
    emit table_filled(std::get<int>(result));
}

} // namespace kelvarin
