// SPDX-License-Identifier: MIT
#include "nle/window/frmNleEE.h"

#include "desktop/qt_text.h"
#include "expr/basParse.h"
#include "platform/text_file.h"

namespace kelvarin
{

frmNleEE::frmNleEE(desktop_context& context, QWidget* parent, nle_problem& problem, int row)
    : entry_dialog(context, parent, "frmNleEE", row == 0 ? tr("New explicit equation") : tr("Edit explicit equation")),
      problem_(problem), row_(row)
{
    auto* hint = new QLabel(tr("The variable is the value of the expression."));
    hint->setObjectName(QStringLiteral("lblHint"));
    form()->addRow(QString(), hint);
    if (row == 0) return;
    const equation_row& present = problem.content().rows.at(static_cast<std::size_t>(row - 1));
    const equation_parts parts = parts_of(present.equation);
    txtVar()->setText(to_qstring(parts.name));
    txtEquation()->set_expression(parts.right_side);
    txtComment()->setText(to_qstring(present.comment));
}

std::optional<message_box> frmNleEE::take_over()
{
    return problem_.put_explicit(to_text(txtVar()->text()), txtEquation()->expression(), to_text(txtComment()->text()),
                                 row_);
}

std::optional<message_box> frmNleEE::check_now() const
{
    const std::string expression = txtEquation()->expression();
    if (trimmed(expression).empty()) return std::nullopt;
    // What is not filled in yet is no fault while one types.
    if (txtVar()->text().trimmed().isEmpty() && check_expression(expression).ok) return std::nullopt;
    return problem_.check_explicit(to_text(txtVar()->text()), expression, row_);
}

} // namespace kelvarin
