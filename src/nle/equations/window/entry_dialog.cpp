// SPDX-License-Identifier: MIT
#include "nle/equations/window/entry_dialog.h"

#include "desktop/look.h"
#include "desktop/qt_text.h"
#include "desktop/window_memory.h"
#include "expr/basParse.h"
#include "expr/syntax_hint.h"
#include "platform/text_file.h"

#include <QHBoxLayout>
#include <QVBoxLayout>

#include <algorithm>

namespace kelvarin
{

entry_dialog::entry_dialog(desktop_context& context, QWidget* parent, const entry_dialog_names& names,
                           const QString& caption, const QString& hint)
    : QDialog(parent), context_(context)
{
    setObjectName(QString::fromLatin1(names.dialog));
    setWindowTitle(caption);
    setAttribute(Qt::WA_DeleteOnClose);
    pause_.setSingleShot(true);
    pause_.setInterval(333);
    build_ui(names, hint);
    remember_place(context_.registry, *this);
    connect(&pause_, &QTimer::timeout, this, &entry_dialog::show_check);
    connect(txtEquation_, &expression_edit::paused, this, &entry_dialog::show_check);
    connect(txtEquation_, &expression_edit::done_asked, this, &entry_dialog::done_clicked);
}

void entry_dialog::build_ui(const entry_dialog_names& names, const QString& hint)
{
    const int unit = line_unit(*this);
    txtVar_ = new QLineEdit(this);
    txtVar_->setObjectName(QString::fromLatin1(names.variable));
    txtVar_->setFont(fixed_font(*this));
    txtEquation_ = new expression_edit(this);
    txtEquation_->setObjectName(QString::fromLatin1(names.expression));
    txtComment_ = new QLineEdit(this);
    txtComment_->setObjectName(QString::fromLatin1(names.comment));
    lblCheckVar_ = make_check("lblCheckVar");
    lblCheck_ = make_check("lblCheck");
    // The expression has two lines: what is wrong, and the likely cause.
    lblCheck_->setMinimumHeight(2 * unit);
    tint_checks();

    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(unit, unit, unit, unit);
    layout->setSpacing(unit);
    form_ = new QFormLayout;
    form_->setVerticalSpacing(unit / 2);
    form_->setHorizontalSpacing(unit);
    form_->setFieldGrowthPolicy(QFormLayout::AllNonFixedFieldsGrow);
    form_->addRow(tr("Varia&ble"), txtVar_);
    form_->addRow(static_cast<QWidget*>(nullptr), lblCheckVar_);
    form_->addRow(tr("E&xpression"), txtEquation_);
    form_->addRow(static_cast<QWidget*>(nullptr), lblCheck_);
    form_->addRow(tr("Co&mment"), txtComment_);
    auto* lblHint = new QLabel(hint, this);
    lblHint->setObjectName(QStringLiteral("lblHint"));
    form_->addRow(QString(), lblHint);
    layout->addLayout(form_, 1);
    layout->addLayout(build_buttons());
    watch(txtVar_);
}

QLabel* entry_dialog::make_check(const char* name)
{
    auto* label = new QLabel(this);
    label->setObjectName(QString::fromLatin1(name));
    label->setTextFormat(Qt::PlainText);
    label->setWordWrap(true);
    label->setAlignment(Qt::AlignLeft | Qt::AlignTop);
    // Space is reserved, so that nothing moves when the text appears.
    label->setMinimumHeight(line_unit(*this));
    return label;
}

QLayout* entry_dialog::build_buttons()
{
    const auto make = [this](const char* name, const QString& caption, auto handler) {
        auto* button = new QPushButton(caption, this);
        button->setObjectName(QString::fromLatin1(name));
        connect(button, &QPushButton::clicked, this, handler);
        return button;
    };
    auto* listing = make("cmdShowallvars", tr("Show list of &variables"), &entry_dialog::listing_asked);
    auto* clear = make("cmdClear", tr("C&lear"), &entry_dialog::clear_clicked);
    auto* done_button = make("cmdDone", tr("&Done"), &entry_dialog::done_clicked);
    auto* cancel = make("cmdCancel", tr("Cancel"), &entry_dialog::cancel_clicked);
    done_button->setDefault(true);
    const int width_of_pair = std::max(done_button->sizeHint().width(), cancel->sizeHint().width());
    done_button->setMinimumWidth(width_of_pair);
    cancel->setMinimumWidth(width_of_pair);

    auto* row = new QHBoxLayout;
    row->setSpacing(line_unit(*this) / 2);
    row->addWidget(listing);
    row->addStretch();
    for (QPushButton* button : {clear, done_button, cancel})
        row->addWidget(button);
    return row;
}

void entry_dialog::watch(QLineEdit* field)
{
    connect(field, &QLineEdit::textChanged, &pause_, qOverload<>(&QTimer::start));
}

void entry_dialog::insert_row(const QString& label, QWidget* field)
{
    int comment_row = 0;
    form_->getWidgetPosition(txtComment_, &comment_row, nullptr);
    form_->insertRow(comment_row, label, field);
    if (auto* line = qobject_cast<QLineEdit*>(field)) watch(line);
}

QLabel* entry_dialog::insert_value(const QString& label, QLineEdit* field)
{
    value_field_ = field;
    insert_row(label, field);
    lblCheckValue_ = make_check("lblCheckValue");
    insert_row(QString(), lblCheckValue_);
    tint_checks();
    return static_cast<QLabel*>(form_->labelForField(field));
}

void entry_dialog::chain_tab_order()
{
    // Rows may have been inserted in any order; the tab order is that of the form.
    QWidget* last = txtVar_;
    const auto append = [&last](QWidget* widget) {
        if (!widget || !(widget->focusPolicy() & Qt::TabFocus)) return;
        if (widget != last) setTabOrder(last, widget);
        last = widget;
    };
    for (int row = 0; row < form_->rowCount(); ++row) {
        const QLayoutItem* item = form_->itemAt(row, QFormLayout::FieldRole);
        QWidget* field = item ? item->widget() : nullptr;
        append(field);
        if (!field || field == txtEquation_) continue;
        const auto children = field->findChildren<QWidget*>();
        for (QWidget* child : children)
            append(child);
    }
    for (const char* button : {"cmdShowallvars", "cmdClear", "cmdDone", "cmdCancel"})
        append(findChild<QWidget*>(QString::fromLatin1(button)));
}

QWidget* entry_dialog::field_of(entry_field field) const
{
    if (field == entry_field::expression) return txtEquation_;
    return field == entry_field::value && value_field_ ? value_field_ : txtVar_;
}

QLabel* entry_dialog::check_below(entry_field field) const
{
    if (field == entry_field::name) return lblCheckVar_;
    return field == entry_field::value && lblCheckValue_ ? lblCheckValue_ : lblCheck_;
}

void entry_dialog::done_clicked()
{
    const std::optional<message_box> refused = take_over();
    if (!refused) {
        dialog_result_ = QStringLiteral("done");
        accept();
        return;
    }
    // Show the field before the box, so that the marked text is visible behind it.
    QWidget* field = field_of(refused->field);
    if (refused->place) txtEquation_->select_place(*refused->place);
    field->setFocus(Qt::OtherFocusReason);
    if (auto* line = qobject_cast<QLineEdit*>(field)) line->selectAll();
    context_.user.show(this, *refused);
}

void entry_dialog::cancel_clicked()
{
    reject();
}

void entry_dialog::clear_clicked()
{
    txtVar_->clear();
    txtEquation_->clear();
    txtComment_->clear();
    clear_fields();
    txtEquation_->mark_place(std::nullopt);
    for (const entry_field field : {entry_field::name, entry_field::expression, entry_field::value})
        check_below(field)->clear();
    txtVar_->setFocus(Qt::OtherFocusReason);
}

void entry_dialog::fill_from(const equation_row& row, const row_form& form)
{
    const equation_parts parts = parts_of(row.equation, form);
    txtVar_->setText(to_qstring(parts.name));
    txtEquation_->set_expression(parts.right_side);
    txtComment_->setText(to_qstring(row.comment));
    start_in(entry_field::expression);
}

std::optional<message_box> entry_dialog::check_while_typing() const
{
    const std::string expression = txtEquation_->expression();
    if (trimmed(expression).empty()) return std::nullopt;
    // Fields that are not filled in yet are not an error.
    if (!is_filled_in() && check_expression(expression).ok) return std::nullopt;
    return check();
}

void entry_dialog::show_check()
{
    const std::optional<message_box> fault = check_while_typing();
    QString text = fault ? to_qstring(fault->text) : QString();
    // For a refused expression show the likely cause.
    const std::string expression = txtEquation_->expression();
    if (fault && !check_expression(expression).ok) text += QLatin1Char('\r') + to_qstring(syntax_hint(expression));
    text = text.trimmed();
    text.replace(QLatin1Char('\r'), QLatin1Char(' '));
    QLabel* below = check_below(fault ? fault->field : entry_field::expression);
    for (const entry_field field : {entry_field::name, entry_field::expression, entry_field::value})
        if (check_below(field) != below) check_below(field)->clear();
    below->setText(text);
    txtEquation_->mark_place(fault ? fault->place : std::nullopt);
}

void entry_dialog::tint_checks()
{
    QPalette tinted = palette();
    const QColor text = tinted.color(QPalette::WindowText);
    tinted.setColor(QPalette::WindowText, mixed(text, tinted.color(QPalette::Window), 0.35));
    for (QLabel* check : {lblCheckVar_, lblCheck_, lblCheckValue_})
        if (check) check->setPalette(tinted);
}

void entry_dialog::showEvent(QShowEvent* event)
{
    if (!was_shown_) {
        was_shown_ = true;
        chain_tab_order();
        QWidget* start = field_of(start_);
        start->setFocus(Qt::OtherFocusReason);
        if (auto* line = qobject_cast<QLineEdit*>(start)) line->selectAll();
        if (start == txtEquation_) txtEquation_->moveCursor(QTextCursor::End);
    }
    QDialog::showEvent(event);
}

void entry_dialog::changeEvent(QEvent* event)
{
    QDialog::changeEvent(event);
    if (event->type() == QEvent::PaletteChange && lblCheck_) tint_checks();
}

} // namespace kelvarin
