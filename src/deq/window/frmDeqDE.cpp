// SPDX-License-Identifier: MIT
#include "deq/window/frmDeqDE.h"

#include "desktop/controls.h"
#include "desktop/look.h"
#include "desktop/qt_text.h"

namespace kelvarin
{

frmDeqDE::frmDeqDE(desktop_context& context, QWidget* parent, deq_problem& problem, int row)
    : entry_dialog(context, parent, {.dialog = "frmDeqDE", .expression = "txtExpression", .comment = "txtComments"},
                   row == 0 ? tr("New differential equation") : tr("Edit differential equation"),
                   tr("The expression is the derivative of the variable.")),
      problem_(problem), row_(row)
{
    build_ui();
    connect(txtVar(), &QLineEdit::textChanged, this, &frmDeqDE::txtVar_Change);
    txtVar_Change();
    if (row == 0) return;
    const equation_row& present = problem.content().rows.at(static_cast<std::size_t>(row - 1));
    fill_from(present, deq_row_form);
    txtGuess_->setText(to_qstring(present.guess));
}

void frmDeqDE::build_ui()
{
    auto* lblDT =
        named(new QLabel(QStringLiteral("d (%1)").arg(to_qstring(problem_.content().independent).trimmed())), "lblDT");
    lblDT->setTextFormat(Qt::PlainText);
    lblDT->setFont(fixed_font(*this));
    insert_row(tr("Derivative by"), lblDT);

    txtGuess_ = named(new QLineEdit, "txtGuess");
    txtGuess_->setFont(fixed_font(*this));
    txtGuess_->setAccessibleName(tr("Initial value"));
    txtGuess_->setPlaceholderText(tr("initial value"));
    // The text is set later; QFormLayout makes no label for an empty one.
    lblGuess_ = named(insert_value(QStringLiteral(" "), txtGuess_), "lblGuess");
}

void frmDeqDE::txtVar_Change()
{
    lblGuess_->setText(txtVar()->text().trimmed() + QStringLiteral("(0)"));
}

std::optional<message_box> frmDeqDE::take_over()
{
    return problem_.put_differential(to_text(txtVar()->text()), txtEquation()->expression(), to_text(txtGuess_->text()),
                                     to_text(txtComment()->text()), row_);
}

std::optional<message_box> frmDeqDE::check() const
{
    return problem_.check_differential(to_text(txtVar()->text()), txtEquation()->expression(),
                                       to_text(txtGuess_->text()), row_);
}

bool frmDeqDE::is_filled_in() const
{
    return entry_dialog::is_filled_in() && !txtGuess_->text().trimmed().isEmpty();
}

} // namespace kelvarin
