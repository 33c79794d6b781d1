// SPDX-License-Identifier: MIT
#include "opt/window/frmOptRow.h"

#include "desktop/controls.h"
#include "desktop/qt_text.h"

#include <QCheckBox>

#include <algorithm>
#include <utility>

namespace kelvarin
{

frmOptRow::frmOptRow(desktop_context& context, QWidget* parent, opt_problem& problem, bool varied, int row)
    : entry_dialog(context, parent, {.dialog = "frmOptRow"}, row == 0 ? tr("New row") : tr("Edit row"),
                   tr("A varied variable starts from a number. Any other is the value of its expression.")),
      problem_(problem), row_(row), chkVaried_(named(new QCheckBox(tr("Varied: &start value"), this), "chkVaried"))
{
    chkVaried_->setToolTip(tr("The method changes this variable until the target is as small as possible"));
    chkVaried_->setChecked(varied);
    chkVaried_->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    insert_row(QString(), chkVaried_);
    if (row > 0) fill_from(problem.content().rows.at(static_cast<std::size_t>(row - 1)), opt_row_form);
}

std::string frmOptRow::left_side() const
{
    return to_text(txtVar()->text().trimmed()) + (chkVaried_->isChecked() ? "(0) = " : " = ");
}

std::optional<message_box> frmOptRow::in_expression(std::optional<message_box> refused) const
{
    if (refused && refused->place) refused->place->offset -= std::min(refused->place->offset, left_side().size());
    return refused;
}

std::optional<message_box> frmOptRow::take_over()
{
    return in_expression(
        problem_.put_row_text(left_side() + txtEquation()->expression(), to_text(txtComment()->text()), row_));
}

std::optional<message_box> frmOptRow::check() const
{
    return in_expression(problem_.check_opt_row(left_side() + txtEquation()->expression(), row_));
}

} // namespace kelvarin
