// SPDX-License-Identifier: MIT
#include "deq/window/frmDeqEE.h"

#include "desktop/qt_text.h"

namespace kelvarin
{

frmDeqEE::frmDeqEE(desktop_context& context, QWidget* parent, deq_problem& problem, int row)
    : entry_dialog(context, parent,
                   {.dialog = "frmDeqEE", .variable = "txtEVar", .expression = "txtExplicit", .comment = "txtComments"},
                   row == 0 ? tr("New explicit equation") : tr("Edit explicit equation"),
                   tr("The variable is the value of the expression at each point.")),
      problem_(problem), row_(row)
{
    if (row > 0) fill_from(problem.content().rows.at(static_cast<std::size_t>(row - 1)), deq_row_form);
}

std::optional<message_box> frmDeqEE::take_over()
{
    return problem_.put_explicit(to_text(txtVar()->text()), txtEquation()->expression(), to_text(txtComment()->text()),
                                 row_);
}

std::optional<message_box> frmDeqEE::check() const
{
    return problem_.check_explicit(to_text(txtVar()->text()), txtEquation()->expression(), row_);
}

} // namespace kelvarin
