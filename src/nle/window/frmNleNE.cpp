// SPDX-License-Identifier: MIT
#include "nle/window/frmNleNE.h"

#include "desktop/controls.h"
#include "desktop/look.h"
#include "desktop/qt_text.h"

#include <QHBoxLayout>
#include <QRadioButton>

namespace kelvarin
{

frmNleNE::frmNleNE(desktop_context& context, QWidget* parent, nle_problem& problem, int row)
    : entry_dialog(context, parent, {.dialog = "frmNleNE"},
                   row == 0 ? tr("New nonlinear equation") : tr("Edit nonlinear equation"),
                   tr("f(x) is zero at the solution.")),
      problem_(problem), row_(row)
{
    build_ui();
    connect(txtVar(), &QLineEdit::textChanged, this, &frmNleNE::txtVar_Change);
    txtVar_Change();
    if (row == 0) return;
    const equation_row& present = problem.content().rows.at(static_cast<std::size_t>(row - 1));
    fill_from(present, nle_row_form);
    txtGuess_->setText(to_qstring(guess_without_suffix(present.guess)));
    optConstrained_->button(static_cast<int>(constraint_of(present.guess)))->setChecked(true);
}

void frmNleNE::build_ui()
{
    txtGuess_ = new QLineEdit;
    txtGuess_->setObjectName(QStringLiteral("txtGuess"));
    txtGuess_->setFont(fixed_font(*this));
    txtGuess_->setAccessibleName(tr("Initial guess"));
    txtGuess_->setPlaceholderText(tr("initial guess"));
    // The text is set with the variable's name; a row without text would have no label.
    lblGuess_ = named(insert_value(QStringLiteral(" "), txtGuess_), "lblGuess");

    constraints_ = new QWidget;
    auto* options = new QHBoxLayout(constraints_);
    options->setContentsMargins(0, 0, 0, 0);
    optConstrained_ = new QButtonGroup(this);
    const QStringList captions = {tr("Any real value"), tr("Physically positive"), tr("Absolutely positive")};
    for (int i = 0; i < captions.size(); ++i) {
        auto* option = new QRadioButton(captions[i]);
        option->setObjectName(QStringLiteral("optConstrained_%1").arg(i));
        optConstrained_->addButton(option, i);
        options->addWidget(option);
    }
    options->addStretch(1);
    optConstrained_->button(0)->setChecked(true);
    insert_row(QStringLiteral(" "), constraints_);
    lblConstrained_ = named(static_cast<QLabel*>(form()->labelForField(constraints_)), "lblConstrained");
    form()->setRowVisible(constraints_, problem_.content().method == nle_method::constrained);
}

void frmNleNE::txtVar_Change()
{
    const QString name = txtVar()->text().trimmed();
    lblGuess_->setText(name + QStringLiteral("(0)"));
    lblConstrained_->setText(name + QStringLiteral(" solution should be:"));
}

void frmNleNE::clear_fields()
{
    txtGuess_->clear();
    optConstrained_->button(0)->setChecked(true);
}

std::optional<message_box> frmNleNE::take_over()
{
    return problem_.put_implicit(to_text(txtVar()->text()), txtEquation()->expression(), to_text(txtGuess_->text()),
                                 optConstrained_->checkedId(), to_text(txtComment()->text()), row_);
}

std::optional<message_box> frmNleNE::check() const
{
    return problem_.check_implicit(to_text(txtVar()->text()), txtEquation()->expression(), to_text(txtGuess_->text()),
                                   row_);
}

bool frmNleNE::is_filled_in() const
{
    return entry_dialog::is_filled_in() && !txtGuess_->text().trimmed().isEmpty();
}

} // namespace kelvarin
