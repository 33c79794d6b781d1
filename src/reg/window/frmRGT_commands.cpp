// SPDX-License-Identifier: MIT
// What the menus of the window do.

#include "desktop/decimal_comma_question.h"
#include "desktop/qt_text.h"
#include "platform/run_time_numbers.h"
#include "platform/run_time_text.h"
#include "platform/runtime_failure.h"
#include "platform/text_file.h"
#include "reg/table/column_statistics.h"
#include "reg/table/table_edits.h"
#include "reg/table/table_listing.h"
#include "reg/window/frmColTranspose.h"
#include "reg/window/frmRGT.h"
#include "reg/window/table_grid.h"
#include "reg/window/table_grid_model.h"
#include "shell/window/frmSolution.h"

#include <exception>

namespace kelvarin
{

void frmRGT::file_new()
{
    take_over_typing();
    if (!may_replace(kind().unsaved_on_open)) return;
    table_.start_new({context().store.whole_number("table_rows"), context().store.whole_number("table_cols")});
    document_replaced();
    cells_->clear_formats();
    document_changed();
    grdMain_->set_current_cell(0, 0);
}

void frmRGT::copy_table()
{
    take_over_typing();
    try {
        context().user.copy_text(to_qstring(table_listing(table_.content())));
    } catch (const std::exception&) {
        context().user.show(this, {"Error while copying.", box_icon::critical});
    }
}

void frmRGT::edit_cells(int action)
{
    take_over_typing();
    try {
        edit_selection(action);
    } catch (const std::exception&) {
        // Out of memory, most likely; the table holds what was done up to there.
        document_changed();
        context().user.show(this, {"Error : illegal Edit command.", box_icon::critical, "Kelvarin GUIDE"});
    }
}

void frmRGT::edit_selection(int action)
{
    const cell_range block = grdMain_->selected_block();
    switch (action) {
    case 0:
        context().user.copy_text(to_qstring(table_.cut(block)));
        break;
    case 1:
        context().user.copy_text(to_qstring(table_.copy(block)));
        break;
    case 2:
        return paste();
    case 5:
        context().user.copy_text(to_qstring(table_.copy_with_headers(block)));
        break;
    default:
        table_.clear_cells(block);
    }
    document_changed();
}

void frmRGT::paste()
{
    const std::optional<cell_block> block =
        with_decimal_points(context().user, this, read_block(to_text(context().user.clipboard()->text())));
    if (!block || block->empty()) return;
    const cell_range range = grdMain_->selected_block();
    const paste_result result = table_.paste(range.row, range.column, *block);
    document_changed();
    grdMain_->set_current_cell(range.row, range.column);
    const QPointer<frmRGT> self(this);
    for (const message_box& box : result.boxes) {
        context().user.show(this, box);
        if (!self) return;
    }
    grdMain_->select_block(result.pasted);
}

void frmRGT::insert_row()
{
    take_over_typing();
    const int place = row();
    const int at = column();
    table_.insert_row(place);
    cells_->clear_formats();
    document_changed();
    grdMain_->set_current_cell(place, at);
}

void frmRGT::delete_row()
{
    take_over_typing();
    const int place = row();
    const int at = column();
    table_.delete_row(place);
    document_changed();
    grdMain_->set_current_cell(std::min(place, table_.content().rows() - 1), at);
}

void frmRGT::add_columns()
{
    take_over_typing();
    while (true) {
        const auto given = context().user.input(this, QStringLiteral("KELVARIN"),
                                                QStringLiteral("How many columns to add? (1-20)"), {});
        // No answer leaves the table as it is.
        if (!given || given->trimmed().isEmpty()) return;
        const auto number = numeric_value(to_text(*given));
        if (!number || *number <= 0.0 || *number > most_added_columns) continue;
        const int at = column();
        const int place = row();
        table_.add_columns(static_cast<int>(round_half_even(*number)));
        cells_->clear_formats();
        document_changed();
        grdMain_->set_current_cell(place, at);
        return;
    }
}

void frmRGT::define_column()
{
    take_over_typing();
    auto* dialog = new frmColTranspose(context(), table_, column(), this);
    connect(dialog, &frmColTranspose::table_changed, this, &frmRGT::document_changed);
    dialog->open();
}

void frmRGT::rename_column(int column)
{
    take_over_typing();
    const auto name = context().user.input(this, QStringLiteral("KELVARIN"), QStringLiteral("Enter column name."),
                                           to_qstring(table_.content().name(column)));
    if (!name) return;
    const name_change change = table_.rename_column(column, to_text(*name));
    if (change.box) context().user.show(this, *change.box);
    if (change.changed) document_changed();
}

void frmRGT::show_statistics()
{
    take_over_typing();
    try {
        const auto columns = statistics_of_columns(table_.content());
        show_new_report(context(), *this, column_statistics_report(columns, context().clock.today()), table_.title(),
                        QStringLiteral("Column Statistics"));
    } catch (const runtime_failure& failure) {
        context().user.show(this, {"Error: " + std::string(failure.description()), box_icon::critical});
    }
}

void frmRGT::set_calc_digits()
{
    take_over_typing();
    const auto digits =
        context().user.input(this, QStringLiteral("KELVARIN"),
                             QStringLiteral("Enter number of digits to represent calculated values. \n8 < n < 22"),
                             QString::number(table_.content().calc_digits));
    if (!digits || digits->trimmed().isEmpty()) return;
    const auto refused = table_.set_calc_digits(to_text(*digits));
    document_changed();
    if (refused) context().user.show(this, *refused);
}

void frmRGT::format_selection(const std::string& mask)
{
    take_over_typing();
    const user_question asked = {.text = "Data values may change or loose accuracy ! Do you want to continue ?",
                                 .title = "KELVARIN",
                                 .default_answer = user_answer::no};
    if (context().user.ask(this, asked) != user_answer::yes) return;
    table_.format_selection(grdMain_->selected_block(), mask);
    document_changed();
}

void frmRGT::choose_font()
{
    if (const auto font = context().user.choose_font(this, grdMain_->font())) {
        grdMain_->setFont(*font);
        grdMain_->fit_columns(true);
    }
}

void frmRGT::choose_colour(bool back)
{
    const QPalette& palette = grdMain_->palette();
    const auto colour = context().user.choose_colour(this, palette.color(back ? QPalette::Base : QPalette::Text));
    if (!colour) return;
    if (back)
        cells_->set_back_colour(grdMain_->selected_block(), *colour);
    else
        cells_->set_fore_colour(grdMain_->selected_block(), *colour);
}

/// Cut, Paste and Clear are off in a menu while a formula column is selected; their keys pass such columns over.
void frmRGT::limit_commands(bool limited)
{
    const cell_range block = grdMain_->selected_block();
    const bool off = limited && selection_has_formula(table_.content(), block.column, block.column + block.columns - 1);
    clear_item_->setEnabled(!off);
    for (const window_command which : {window_command::cut, window_command::paste})
        context().frame.action(which)->setEnabled(!off);
}

} // namespace kelvarin
