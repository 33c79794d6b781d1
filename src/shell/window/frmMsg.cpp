// SPDX-License-Identifier: MIT
#include "shell/window/frmMsg.h"

#include "desktop/look.h"
#include "shell/report/rich_text.h"
#include "shell/window/report_filler.h"

#include <QPushButton>
#include <QScrollBar>
#include <QTextBlock>
#include <QTextBrowser>
#include <QUrl>
#include <QVBoxLayout>

#include <algorithm>

namespace kelvarin
{

namespace
{

/// The range of the undefined names: from the end of their heading to the next heading. Null if there is no such
/// heading.
QTextCursor undefined_names(QTextDocument& document)
{
    QTextCursor range = document.find(QStringLiteral("Undefined variables"));
    if (range.isNull()) return range;
    const QTextBlock heading = range.block();
    QTextBlock end = heading.next();
    while (end.isValid() && end.charFormat().fontWeight() <= QFont::Normal)
        end = end.next();
    range.setPosition(heading.next().isValid() ? heading.next().position() : range.position());
    range.setPosition(end.isValid() ? end.position() : document.characterCount() - 1, QTextCursor::KeepAnchor);
    return range;
}

/// Whether a character may be part of a name.
bool is_part_of_name(QChar letter)
{
    return letter.isLetterOrNumber() || letter == QLatin1Char('_');
}

bool is_whole_word(const QTextCursor& found)
{
    const QTextDocument& document = *found.document();
    return !is_part_of_name(document.characterAt(found.selectionStart() - 1)) &&
           !is_part_of_name(document.characterAt(found.selectionEnd()));
}

} // namespace

frmMsg::frmMsg(QWidget* parent) : QDialog(parent)
{
    setObjectName(QStringLiteral("frmMsg"));
    setAttribute(Qt::WA_DeleteOnClose);
    build_ui();
}

void frmMsg::build_ui()
{
    txtMsg_ = new QTextBrowser(this);
    txtMsg_->setObjectName(QStringLiteral("txtMsg"));
    txtMsg_->setAccessibleName(tr("Message"));
    txtMsg_->setOpenLinks(false);
    // The text has the colours of reports, which need white paper.
    QPalette paper = txtMsg_->palette();
    paper.setColor(QPalette::Base, Qt::white);
    paper.setColor(QPalette::Text, Qt::black);
    txtMsg_->setPalette(paper);
    connect(txtMsg_, &QTextBrowser::anchorClicked, this, [this](const QUrl& link) {
        const QString name = link.fragment(QUrl::FullyDecoded);
        accept();
        emit name_clicked(name);
    });

    auto* cmdOK = new QPushButton(tr("OK"), this);
    cmdOK->setObjectName(QStringLiteral("cmdOK"));
    cmdOK->setDefault(true);
    connect(cmdOK, &QPushButton::clicked, this, &QDialog::accept);

    auto* layout = new QVBoxLayout(this);
    layout->addWidget(txtMsg_);
    layout->addWidget(cmdOK, 0, Qt::AlignRight);
    cmdOK->setFocus();
}

void frmMsg::display_msg(const QString& caption, std::string_view text, const QStringList& linked_names)
{
    setWindowTitle(caption);
    std::vector<styled_line> lines = read_rich_text(rich_text_document(text));
    // The window itself leaves space below the last line.
    while (!lines.empty() && lines.back().empty())
        lines.pop_back();
    fill_document(*txtMsg_->document(), lines);
    link_names(linked_names);
    txtMsg_->moveCursor(QTextCursor::Start);
    fit_to_text();
    open();
}

void frmMsg::put_always_on_top()
{
    const bool shown = isVisible();
    setWindowFlag(Qt::WindowStaysOnTopHint);
    // setWindowFlag hides the window.
    if (shown) show();
}

void frmMsg::link_names(const QStringList& names)
{
    QTextDocument& document = *txtMsg_->document();
    const QTextCursor range = undefined_names(document);
    if (range.isNull()) return;
    for (const QString& name : names) {
        QTextCharFormat link;
        link.setAnchor(true);
        QUrl target;
        target.setFragment(name, QUrl::DecodedMode);
        link.setAnchorHref(target.toString(QUrl::FullyEncoded));
        link.setForeground(accent(QPalette(Qt::white)));
        link.setFontUnderline(true);
        link.setToolTip(tr("Enter an equation for %1").arg(name));
        QTextCursor found = document.find(name, range.selectionStart(), QTextDocument::FindCaseSensitively);
        while (!found.isNull() && found.selectionEnd() <= range.selectionEnd()) {
            if (is_whole_word(found)) found.mergeCharFormat(link);
            found = document.find(name, found, QTextDocument::FindCaseSensitively);
        }
    }
}

void frmMsg::fit_to_text()
{
    const int unit = line_unit(*this);
    QTextDocument& document = *txtMsg_->document();
    document.setDocumentMargin(unit / 2.0);
    document.setTextWidth(-1);
    const int width = std::clamp(static_cast<int>(document.idealWidth()) + unit, 24 * unit, 48 * unit);
    document.setTextWidth(width);
    const int height = std::clamp(static_cast<int>(document.size().height()) + unit / 2, 6 * unit, 30 * unit);
    const QMargins around = layout()->contentsMargins();
    const int chrome = layout()->spacing() + findChild<QPushButton*>()->sizeHint().height();
    resize(width + 2 * txtMsg_->frameWidth() + txtMsg_->verticalScrollBar()->sizeHint().width() + around.left() +
               around.right(),
           height + 2 * txtMsg_->frameWidth() + chrome + around.top() + around.bottom());
}

} // namespace kelvarin
