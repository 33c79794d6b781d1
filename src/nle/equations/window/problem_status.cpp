// SPDX-License-Identifier: MIT
#include "nle/equations/window/problem_status.h"

#include "desktop/link_label.h"
#include "desktop/qt_text.h"

namespace kelvarin
{

problem_status::problem_status(QWidget* parent) : QStatusBar(parent), message_(new link_label(this))
{
    setSizeGripEnabled(false);
    for (std::size_t panel = 0; panel < counts_.size(); ++panel) {
        counts_[panel] = new QLabel(this);
        counts_[panel]->setObjectName(QStringLiteral("panel_%1").arg(panel + 1));
        counts_[panel]->setTextFormat(Qt::PlainText);
        addWidget(counts_[panel]);
        auto* line = new QFrame(this);
        line->setFrameStyle(static_cast<int>(QFrame::VLine) | static_cast<int>(QFrame::Sunken));
        addWidget(line);
    }
    message_->setObjectName(QStringLiteral("panel_3"));
    addWidget(message_, 1);
    // Not showMessage, which would hide the panels.
    notice_ = new QLabel(this);
    notice_->setObjectName(QStringLiteral("notice"));
    addPermanentWidget(notice_);
    notice_timer_.setSingleShot(true);
    connect(&notice_timer_, &QTimer::timeout, notice_, &QLabel::clear);
    connect(message_, &link_label::name_clicked, this, &problem_status::name_clicked);
}

void problem_status::show_panels(const std::array<std::string, 3>& texts, const std::vector<std::string>& names)
{
    for (std::size_t panel = 0; panel < counts_.size(); ++panel)
        counts_[panel]->setText(to_qstring(texts[panel]));
    QStringList links;
    for (const std::string& name : names)
        links.append(to_qstring(name));
    message_->show_text(to_qstring(texts.back()), links);
}

void problem_status::show_notice(const QString& text)
{
    constexpr int notice_time_ms = 8000;
    notice_->setText(text);
    notice_timer_.start(notice_time_ms);
}

QString problem_status::panel_text(int panel) const
{
    const auto index = static_cast<std::size_t>(panel - 1);
    return index < counts_.size() ? counts_[index]->text() : message_->whole_text();
}

} // namespace kelvarin
