// SPDX-License-Identifier: MIT
#include "nle/equations/window/frmLeftOut.h"

#include "desktop/controls.h"
#include "desktop/expression_edit.h"
#include "desktop/look.h"
#include "desktop/qt_text.h"
#include "desktop/text_spans.h"
#include "desktop/window_memory.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QTextBlock>
#include <QVBoxLayout>

#include <algorithm>
#include <string>
#include <utility>

namespace kelvarin
{

frmLeftOut::frmLeftOut(desktop_context& context, QWidget* parent, const std::vector<left_out_line>& lines,
                       const QStringList& names, line_reader check, line_reader put_in)
    : QDialog(parent), check_(std::move(check)), put_in_(std::move(put_in))
{
    setObjectName(QStringLiteral("frmLeftOut"));
    setWindowTitle(tr("Lines that were left out"));
    setAttribute(Qt::WA_DeleteOnClose);
    build_ui(names);
    show_lines(lines);
    remember_place(context.registry, *this);
}

void frmLeftOut::build_ui(const QStringList& names)
{
    const int unit = line_unit(*this);
    auto* column = new QVBoxLayout(this);
    column->setSpacing(unit / 2);
    txtLines_ = named(new expression_edit(this), "txtLines");
    txtLines_->setAccessibleName(tr("Lines that were left out"));
    txtLines_->setLineWrapMode(QPlainTextEdit::NoWrap);
    txtLines_->setMinimumSize(32 * unit, 8 * unit);
    txtLines_->set_names(names);
    column->addWidget(txtLines_, 1);
    lblReason_ = named(new QLabel(this), "lblReason");
    lblReason_->setTextFormat(Qt::PlainText);
    lblReason_->setWordWrap(true);
    lblReason_->setAlignment(Qt::AlignLeft | Qt::AlignTop);
    // Space is reserved, so that nothing moves when the text changes.
    lblReason_->setMinimumHeight(2 * fontMetrics().lineSpacing());
    column->addWidget(lblReason_);

    auto* cmdPutIn = make_button(tr("&Put in"), "cmdPutIn", tr("Take over the lines that are right (Ctrl+Enter)"));
    auto* cmdClose = make_button(tr("Close"), "cmdClose", tr("Leave these lines out (Esc)"));
    auto* buttons = new QHBoxLayout;
    buttons->setSpacing(unit / 2);
    buttons->addStretch();
    buttons->addWidget(cmdPutIn);
    buttons->addWidget(cmdClose);
    column->addLayout(buttons);

    connect(cmdPutIn, &QPushButton::clicked, this, &frmLeftOut::cmdPutIn_Click);
    connect(cmdClose, &QPushButton::clicked, this, &QDialog::reject);
    connect(txtLines_, &expression_edit::done_asked, this, &frmLeftOut::cmdPutIn_Click);
    connect(txtLines_, &expression_edit::paused, this, &frmLeftOut::check_lines);
    connect(txtLines_, &QPlainTextEdit::cursorPositionChanged, this, &frmLeftOut::tell_reason);
}

void frmLeftOut::show_lines(const std::vector<left_out_line>& lines)
{
    QStringList texts;
    for (const left_out_line& line : lines)
        texts.append(to_qstring(line.text));
    txtLines_->setPlainText(texts.join(QLatin1Char('\n')));
    check_lines();
}

void frmLeftOut::check_lines()
{
    faults_ = check_(to_text(txtLines_->toPlainText()));
    mark_faults();
    tell_reason();
}

void frmLeftOut::mark_faults()
{
    QList<QTextEdit::ExtraSelection> marks;
    for (const left_out_line& fault : faults_) {
        const QTextBlock block = txtLines_->document()->findBlockByNumber(fault.number - 1);
        const std::string line = to_text(block.text());
        const std::size_t start = line.find(fault.text);
        if (start == std::string::npos) continue;
        const text_place part = fault.place.value_or(text_place{0, 0, fault.text.size()});
        // An empty place is shown at the character before it.
        const std::size_t back = part.length == 0 && part.offset > 0 ? 1 : 0;
        const text_span span = span_of(line, start + part.offset - back, part.length + back, text_meaning::marked);
        QTextEdit::ExtraSelection mark;
        mark.cursor = QTextCursor(block);
        mark.cursor.setPosition(block.position() + span.start);
        mark.cursor.setPosition(block.position() + span.start + span.length, QTextCursor::KeepAnchor);
        mark.format = span_format(text_meaning::marked, palette());
        marks.append(mark);
    }
    txtLines_->setExtraSelections(marks);
}

void frmLeftOut::tell_reason()
{
    const int number = txtLines_->textCursor().blockNumber() + 1;
    const auto fault = std::ranges::find(faults_, number, &left_out_line::number);
    QString text;
    if (fault != faults_.end()) {
        const QString reason = fault->reason.empty() ? tr("This is no equation.") : to_qstring(fault->reason);
        text = tr("Line %1: %2").arg(QString::number(number), reason);
    } else if (faults_.empty()) {
        text = tr("These lines can be put in.");
    }
    lblReason_->setText(text.replace(QLatin1Char('\r'), QLatin1Char(' ')));
}

void frmLeftOut::cmdPutIn_Click()
{
    const std::vector<left_out_line> left = put_in_(to_text(txtLines_->toPlainText()));
    if (left.empty()) return accept();
    show_lines(left);
    txtLines_->setFocus(Qt::OtherFocusReason);
}

} // namespace kelvarin
