// SPDX-License-Identifier: MIT
#include "nle/equations/window/problem_status.h"

#include "desktop/link_label.h"
#include "desktop/look.h"
#include "desktop/qt_text.h"
#include "desktop/wrapping_row.h"

#include <QVBoxLayout>

#include <algorithm>

namespace kelvarin
{

problem_status::problem_status(QWidget* parent) : QWidget(parent), message_(new link_label(this))
{
    const int unit = line_unit(*this);
    auto* row = new wrapping_row(unit / 2);
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, unit / 4);
    column->addLayout(row);
    for (std::size_t panel = 0; panel < counts_.size(); ++panel) {
        counts_[panel] = new QLabel(this);
        counts_[panel]->setObjectName(QStringLiteral("panel_%1").arg(panel + 1));
        counts_[panel]->setTextFormat(Qt::PlainText);
        auto* line = new QFrame(this);
        line->setFrameStyle(static_cast<int>(QFrame::VLine) | static_cast<int>(QFrame::Sunken));
        row->add_together({counts_[panel], line});
    }
    message_->setObjectName(QStringLiteral("panel_3"));
    message_->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Preferred);
    row->addWidget(message_);
    // In its own place, so that it hides no panel.
    notice_ = new QLabel(this);
    notice_->setObjectName(QStringLiteral("notice"));
    notice_->hide();
    row->addWidget(notice_);
    notice_timer_.setSingleShot(true);
    connect(&notice_timer_, &QTimer::timeout, this, [this] { show_notice({}); });
    connect(message_, &link_label::name_clicked, this, &problem_status::name_clicked);
}

void problem_status::show_panels(const std::array<std::string, 3>& texts, const std::vector<std::string>& names)
{
    for (std::size_t panel = 0; panel < counts_.size(); ++panel)
        counts_[panel]->setText(to_qstring(texts[panel]));
    QStringList links;
    for (const std::string& name : names)
        links.append(to_qstring(name));
    const QString message = to_qstring(texts.back());
    message_->show_text(message, links);
    message_->setVisible(!message.isEmpty());
    // What is left of a line has to show some of it; else it gets a line of its own.
    constexpr int letters_at_least = 24;
    const QFontMetrics letters = message_->fontMetrics();
    message_->setMinimumWidth(
        std::min(letters.horizontalAdvance(message), letters_at_least * letters.averageCharWidth()));
}

void problem_status::show_notice(const QString& text)
{
    constexpr int notice_time_ms = 8000;
    notice_->setText(text);
    notice_->setVisible(!text.isEmpty());
    if (text.isEmpty())
        notice_timer_.stop();
    else
        notice_timer_.start(notice_time_ms);
}

QString problem_status::panel_text(int panel) const
{
    const auto index = static_cast<std::size_t>(panel - 1);
    return index < counts_.size() ? counts_[index]->text() : message_->whole_text();
}

} // namespace kelvarin
