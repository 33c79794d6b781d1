// SPDX-License-Identifier: MIT
// The gestures by which a problem of equations is edited.

#include "desktop/link_label.h"
#include "desktop/qt_text.h"
#include "expr/syntax_hint.h"
#include "nle/equations/set_texts.h"
#include "nle/equations/window/entry_dialog.h"
#include "nle/equations/window/equation_grid.h"
#include "nle/equations/window/equation_window.h"
#include "nle/equations/window/frmLeftOut.h"
#include "platform/run_time_text.h"
#include "platform/text_file.h"
#include "shell/window/frmMsg.h"

#include <algorithm>

namespace kelvarin
{

namespace
{

constexpr int most_added_rows = 100;

const QString input_title = QStringLiteral("Kelvarin");

} // namespace

bool equation_window::ready_for_new_row()
{
    if (is_running()) return false;
    if (const auto refused = equations().may_add()) {
        context().user.show(this, *refused);
        return false;
    }
    empty_rows_ = std::max(empty_rows_, 1);
    update_num_vars();
    grid_->set_current_row(equation_count() + 1);
    return true;
}

void equation_window::cmdNewImplicit_Click()
{
    if (ready_for_new_row()) show_dialog(make_entry_dialog(true, 0), 0);
}

void equation_window::cmdNewEquation_Click()
{
    new_explicit({});
}

void equation_window::new_explicit(const QString& name)
{
    if (!ready_for_new_row()) return;
    entry_dialog* dialog = make_entry_dialog(false, 0);
    dialog->txtVar()->setText(name);
    if (!name.isEmpty()) dialog->start_in(entry_field::expression);
    show_dialog(dialog, 0);
}

void equation_window::offer_next_name()
{
    if (!status_.set.undefined.empty() && !equations().may_add())
        new_explicit(to_qstring(status_.set.undefined.front()));
}

void equation_window::cmdEdit_Click()
{
    edit_row(grid_->current_row(), entry_field::expression);
}

void equation_window::edit_row(int row, entry_field start)
{
    if (is_running() || row < 1 || row > equation_count()) return;
    const bool implicit = is_implicit(equations().rows()[static_cast<std::size_t>(row - 1)].equation, form_);
    entry_dialog* dialog = make_entry_dialog(implicit, row);
    if (dialog->value_field() || start != entry_field::value) dialog->start_in(start);
    show_dialog(dialog, row);
}

void equation_window::show_dialog(entry_dialog* dialog, int row)
{
    dialog->txtEquation()->set_names(variables());
    connect(dialog, &entry_dialog::listing_asked, this, [this, dialog] { show_listing(dialog, false); });
    connect(dialog, &QDialog::accepted, this, [this, row] {
        if (row == 0) --empty_rows_;
        document_changed();
        grid_->set_current_row(row == 0 ? equation_count() : row);
        if (row == 0) offer_next_name();
    });
    dialog->open();
}

QStringList equation_window::variables() const
{
    const equation_set& set = status_.set;
    QStringList names;
    for (const auto* list : {&set.implicit_names, &set.explicit_names, &set.undefined})
        for (const std::string& name : *list)
            names.append(to_qstring(name));
    names.removeDuplicates();
    return names;
}

void equation_window::cmdRemove_Click()
{
    const std::vector<int> rows = grid_->selected_rows();
    if (rows.empty()) return;
    const bool all = static_cast<int>(rows.size()) == equation_count();
    const user_question sure = {.text = rows.size() == 1
                                            ? std::string("Are you sure you want to remove this equation ?")
                                            : "Are you sure you want to remove these " + std::to_string(rows.size()) +
                                                  " equations ?"};
    if (!all && context().user.ask(this, sure) != user_answer::yes) return;
    changed_or_refused(equations().remove(rows));
    if (!all) grid_->select_rows({std::min(rows.front(), equation_count())});
}

void equation_window::cmdUpDwn_Click(bool up)
{
    std::vector<int> rows = grid_->selected_rows();
    if (!equations().move(rows, up)) return;
    document_changed();
    for (int& row : rows)
        row += up ? -1 : 1;
    grid_->select_rows(rows);
}

void equation_window::cmbMethod_Click(int index)
{
    choose_method(index);
    document_changed();
}

void equation_window::comment_edited(int row, const QString& comment)
{
    equations().set_comment(row, to_text(comment));
    document_changed();
}

cell_answer equation_window::take_cell(const typed_cell& cell)
{
    const int row = cell.row <= equation_count() ? cell.row : 0;
    std::optional<message_box> refused;
    if (!cell.is_value)
        refused = equations().put_text(cell.text, row);
    else if (cell.equation)
        refused = equations().put_text(*cell.equation, row, cell.text);
    else
        refused = equations().set_value(row, cell.text);
    if (!refused) {
        if (row == 0) empty_rows_ = std::max(0, empty_rows_ - 1);
        document_changed();
        return cell_answer::taken;
    }
    if (!cell.by_key) {
        QString reason = to_qstring(refused->text);
        reason.replace(QLatin1Char('\r'), QLatin1Char(' '));
        show_advice(tr("%1 was not taken over. %2").arg(to_qstring(cell.equation.value_or(cell.text)), reason));
        return cell_answer::refused;
    }
    if (!cell.is_value && refused->field == entry_field::value) return cell_answer::value_missing;
    if (refused->place && !cell.is_value) grid_->select_while_typing(*refused->place);
    context().user.show(this, *refused);
    return cell_answer::refused;
}

void equation_window::offer_given_up(const given_up_text& text)
{
    const QString link = tr("bring it back");
    show_advice(tr("What was typed in row %1 was given up: %2").arg(text.row).arg(link), {link});
    given_up_ = std::make_unique<given_up_text>(text);
}

void equation_window::cell_entered(int row, bool added)
{
    if (!added) return grid_->set_current_row(row);
    grid_->set_current_row(equation_count() + 1);
    if (status_.set.undefined.empty() || equations().may_add()) return;
    grid_->begin_row(to_qstring(status_.set.undefined.front()) + QStringLiteral(" = "));
}

void equation_window::check_typing(int row, const QString& text)
{
    const std::string typed = to_text(text);
    const std::size_t equals = typed.find('=');
    // What has hardly begun is not at fault yet.
    const bool begun = equals != std::string::npos && !trimmed(typed.substr(equals + 1)).empty();
    std::optional<message_box> fault;
    if (begun) fault = equations().check_text(typed, row <= equation_count() ? row : 0);
    if (fault && fault->field == entry_field::value) fault.reset();
    QString line = fault ? to_qstring(fault->text) : QString();
    if (fault && fault->field == entry_field::expression) {
        const QString hint = to_qstring(syntax_hint(trimmed(typed.substr(equals + 1))));
        if (!hint.isEmpty()) line += QStringLiteral(" \u2013 ") + hint;
    }
    show_advice(line.replace(QLatin1Char('\r'), QLatin1Char(' ')).trimmed());
    grid_->mark_while_typing(fault ? fault->place : std::nullopt);
}

void equation_window::add_rows()
{
    const std::string limit = std::to_string(equation_limit);
    const auto given = context().user.input(
        this, input_title,
        to_qstring("How many rows wouldyou like to add ? (value should be between 1-100).Note: total number of rows "
                   "must be smaller than " +
                   limit + "."),
        QStringLiteral("10"));
    if (!given) return;
    const std::optional<double> number = numeric_value(to_text(*given));
    if (!number || *number < 1 || *number > most_added_rows) {
        context().user.show(this, {.text = "Data input not legal !", .title = "Kelvarin GUIDE"});
        return;
    }
    const int rows = static_cast<int>(*number);
    if (equation_count() + empty_rows_ + rows > equation_limit) {
        context().user.show(this, {.text = "Number of rows must be smaller than " + limit + "."});
        return;
    }
    empty_rows_ += rows;
    update_num_vars();
}

void equation_window::ask_new_name()
{
    const auto row = static_cast<std::size_t>(grid_->current_row() - 1);
    const std::string name(parts_of(equations().rows()[row].equation, form_).name);
    const auto given = context().user.input(
        this, input_title, tr("New name of the variable '%1', in all equations:").arg(to_qstring(name)),
        to_qstring(name));
    if (given) changed_or_refused(equations().rename_variable(name, to_text(*given)));
}

void equation_window::cmdShowallvars_Click()
{
    show_listing(this, true);
}

void equation_window::show_listing(QWidget* parent, bool with_links)
{
    QStringList links;
    if (with_links)
        for (const std::string& name : status_.set.undefined)
            links.append(to_qstring(name));
    auto* listing = new frmMsg(parent);
    connect(listing, &frmMsg::name_clicked, this, &equation_window::name_clicked);
    listing->display_msg(listing_caption_, variable_listing(), links);
}

void equation_window::name_clicked(const QString& name)
{
    const std::string wanted = to_text(name);
    if (std::ranges::count(status_.set.undefined, wanted) > 0) return new_explicit(name);
    std::vector<int> rows;
    int number = 0;
    for (const equation_row& row : equations().rows()) {
        ++number;
        if (parts_of(row.equation, form_).name == wanted) rows.push_back(number);
    }
    grid_->select_rows(rows);
    grid_->setFocus();
}

void equation_window::copy_rows()
{
    std::string lines;
    for (const int number : grid_->selected_rows()) {
        const equation_row& row = equations().rows()[static_cast<std::size_t>(number - 1)];
        lines += row.equation + '\t' + row.guess;
        if (!row.comment.empty()) lines += '\t' + row.comment;
        lines += '\n';
    }
    context().user.copy_text(to_qstring(lines));
}

void equation_window::paste_rows()
{
    if (is_running()) return;
    put_in(to_text(context().user.clipboard()->text()));
}

void equation_window::put_in(const std::string& text)
{
    const std::vector<int> selected = grid_->selected_rows();
    pasted_rows pasted = equations().paste(text, selected.empty() ? equation_count() : selected.back());
    document_changed();
    grid_->select_rows(pasted.rows);
    left_out_ = std::move(pasted.left_out);
    tell_of_paste(pasted);
}

void equation_window::tell_of_paste(const pasted_rows& pasted)
{
    const auto count = static_cast<int>(pasted.rows.size());
    QStringList sentences;
    if (!pasted.changed)
        sentences.append(tr("The clipboard has no equation that could be taken over."));
    else if (!left_out_.empty() || !pasted.without_value.empty())
        sentences.append(count == 1 ? tr("1 equation was taken over.")
                                    : tr("%1 equations were taken over.").arg(count));
    if (!pasted.without_value.empty())
        sentences.append(tr("These have no %1 yet, %2.")
                             .arg(grid_->value_head().toLower(), to_qstring(joined_names(pasted.without_value))));
    QStringList links;
    if (!left_out_.empty()) {
        links.append(left_out_.size() == 1 ? tr("1 line") : tr("%1 lines").arg(left_out_.size()));
        sentences.append(tr("Left out: %1").arg(links.front()));
    }
    show_advice(sentences.join(QLatin1Char(' ')), links);
}

void equation_window::show_left_out()
{
    auto* dialog = new frmLeftOut(
        context(), this, left_out_, variables(),
        [this](std::string_view text) { return equations().check_paste(text); },
        [this](std::string_view text) {
            put_in(std::string(text));
            return left_out_;
        });
    dialog->open();
}

void equation_window::show_advice(const QString& text, const QStringList& links)
{
    lblAdvice_->show_text(text, links);
    lblAdvice_->setVisible(!text.isEmpty());
    given_up_.reset();
    if (text.isEmpty()) left_out_.clear();
}

void equation_window::edit_first_value()
{
    int number = 0;
    for (const equation_row& row : equations().rows()) {
        ++number;
        if (is_implicit(row.equation, form_)) return grid_->edit_value(number);
    }
}

void equation_window::follow_advice(const QString& link)
{
    if (const std::unique_ptr<given_up_text> text = std::move(given_up_)) {
        show_advice({});
        grid_->type_on(*text);
    } else if (left_out_.empty()) {
        advice_taken(link);
    } else {
        show_left_out();
    }
}

} // namespace kelvarin
