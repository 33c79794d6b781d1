// SPDX-License-Identifier: MIT
#include "nle/window/frmNleEE.h"

#include "desktop/qt_text.h"

namespace kelvarin
{

frmNleEE::frmNleEE(desktop_context& context, QWidget* parent, nle_problem& problem, int row)
    : entry_dialog(context, parent, {.dialog = "frmNleEE"},
                   row == 0 ? tr("New explicit equation") : tr("Edit explicit equation"),
                   tr("The variable is the value of the expression.")),
      problem_(problem), row_(row)
{
    if (row > 0) fill_from(problem.content().rows.at(static_cast<std::size_t>(row - 1)), nle_row_form);
}

std::optional<message_box> frmNleEE::take_over()
{
    return problem_.put_explicit(to_text(txtVar()->text()), txtEquation()->expression(), to_text(txtComment()->text()),
                                 row_);
}

std::optional<message_box> frmNleEE::check() const
{
    return problem_.check_explicit(to_text(txtVar()->text()), txtEquation()->expression(), row_);
}

} // namespace kelvarin
