// SPDX-License-Identifier: MIT
// The gestures by which a problem is edited.

#include "desktop/qt_text.h"
#include "nle/equations/window/equation_grid.h"
#include "nle/window/frmNLE.h"
#include "nle/window/frmNleEE.h"
#include "nle/window/frmNleNE.h"
#include "platform/run_time_text.h"
#include "shell/window/frmMsg.h"

#include <QMimeData>

#include <algorithm>
#include <memory>

namespace kelvarin
{

namespace
{

constexpr int most_added_rows = 100;

const QString input_title = QStringLiteral("Kelvarin");

} // namespace

bool frmNLE::ready_for_new_row()
{
    if (is_running()) return false;
    if (const auto refused = problem_.may_add()) {
        context().user.show(this, *refused);
        return false;
    }
    empty_rows_ = std::max(empty_rows_, 1);
    update_num_vars();
    grdRoots_->set_current_row(problem_.equation_count() + 1);
    return true;
}

void frmNLE::cmdNewRoot_Click()
{
    if (ready_for_new_row()) show_dialog(new frmNleNE(context(), this, problem_, 0), 0);
}

void frmNLE::cmdNewEquation_Click()
{
    new_explicit({});
}

void frmNLE::new_explicit(const QString& name)
{
    if (!ready_for_new_row()) return;
    auto* dialog = new frmNleEE(context(), this, problem_, 0);
    dialog->txtVar()->setText(name);
    show_dialog(dialog, 0);
    if (!name.isEmpty()) dialog->txtEquation()->setFocus();
}

void frmNLE::cmdEdit_Click()
{
    edit_row(grdRoots_->current_row());
}

void frmNLE::edit_row(int row)
{
    if (is_running() || row < 1 || row > problem_.equation_count()) return;
    if (is_implicit(problem_.content().rows[static_cast<std::size_t>(row - 1)].equation))
        show_dialog(new frmNleNE(context(), this, problem_, row), row);
    else
        show_dialog(new frmNleEE(context(), this, problem_, row), row);
}

void frmNLE::show_dialog(entry_dialog* dialog, int row)
{
    dialog->txtEquation()->set_names(variables());
    connect(dialog, &entry_dialog::listing_asked, this, [this, dialog] { show_listing(dialog, false); });
    connect(dialog, &QDialog::accepted, this, [this, row] {
        if (row == 0) --empty_rows_;
        document_changed();
        grdRoots_->set_current_row(row == 0 ? problem_.equation_count() : row);
    });
    dialog->open();
}

QStringList frmNLE::variables() const
{
    QStringList names;
    for (const auto* list : {&analysis_.set.implicit_names, &analysis_.set.explicit_names, &analysis_.set.undefined})
        for (const std::string& name : *list)
            names.append(to_qstring(name));
    names.removeDuplicates();
    return names;
}

void frmNLE::cmdRemove_Click()
{
    const bool last_one = problem_.equation_count() == 1;
    const user_question sure = {.text = "Are you sure you want to remove this equation ?"};
    if (!last_one && context().user.ask(this, sure) != user_answer::yes) return;
    changed_or_refused(problem_.remove(grdRoots_->current_row()));
}

void frmNLE::cmdUpDwn_Click(bool up)
{
    const int row = grdRoots_->current_row();
    if (!problem_.move(row, up)) return;
    document_changed();
    grdRoots_->set_current_row(up ? row - 1 : row + 1);
}

void frmNLE::cmbMethod_Click(int index)
{
    problem_.choose_method(static_cast<nle_method>(index));
    document_changed();
}

void frmNLE::bound_Change()
{
    problem_.set_bounds(to_text(txtnle_min_ini_guess_->text()), to_text(txtnle_max_ini_guess_->text()));
    document_changed();
}

void frmNLE::comment_edited(int row, const QString& comment)
{
    problem_.set_comment(row, to_text(comment));
    document_changed();
}

void frmNLE::take_over_typing()
{
    // The grid keeps the comment that is being typed when it is locked.
    grdRoots_->set_editable(false);
    grdRoots_->set_editable(!is_running());
}

void frmNLE::add_rows()
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
    if (problem_.equation_count() + empty_rows_ + rows > equation_limit) {
        context().user.show(this, {.text = "Number of rows must be smaller than " + limit + "."});
        return;
    }
    empty_rows_ += rows;
    update_num_vars();
}

void frmNLE::rename_variable()
{
    const auto row = static_cast<std::size_t>(grdRoots_->current_row() - 1);
    const std::string name(parts_of(problem_.content().rows.at(row).equation).name);
    const auto given = context().user.input(
        this, input_title, tr("New name of the variable '%1', in all equations:").arg(to_qstring(name)),
        to_qstring(name));
    if (given) changed_or_refused(problem_.rename_variable(name, to_text(*given)));
}

void frmNLE::cmdShowallvars_Click()
{
    show_listing(this, true);
}

void frmNLE::show_listing(QWidget* parent, bool with_links)
{
    QStringList links;
    if (with_links)
        for (const std::string& name : analysis_.set.undefined)
            links.append(to_qstring(name));
    auto* listing = new frmMsg(parent);
    connect(listing, &frmMsg::name_clicked, this, &frmNLE::name_clicked);
    listing->display_msg(QStringLiteral("NLE variables"), show_all_vars(problem_.content()), links);
}

void frmNLE::name_clicked(const QString& name)
{
    const std::string wanted = to_text(name);
    if (std::ranges::count(analysis_.set.undefined, wanted) > 0) return new_explicit(name);
    std::vector<int> rows;
    int number = 0;
    for (const equation_row& row : problem_.content().rows) {
        ++number;
        if (parts_of(row.equation).name == wanted) rows.push_back(number);
    }
    grdRoots_->select_rows(rows);
    grdRoots_->setFocus();
}

void frmNLE::copy_rows()
{
    std::string lines;
    for (const int number : grdRoots_->selected_rows()) {
        const equation_row& row = problem_.content().rows.at(static_cast<std::size_t>(number - 1));
        lines += row.equation + '\t' + row.guess;
        if (!row.comment.empty()) lines += '\t' + row.comment;
        lines += '\n';
    }
    auto content = std::make_unique<QMimeData>();
    content->setText(to_qstring(lines));
    context().user.copy(std::move(content));
}

} // namespace kelvarin
