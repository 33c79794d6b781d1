// SPDX-License-Identifier: MIT
#include "app/main_status_bar.h"

#include "desktop/elided_label.h"
#include "desktop/look.h"

#include <QAccessible>
#include <QAction>
#include <QProgressBar>
#include <QToolButton>

#include <algorithm>
#include <chrono>
#include <cmath>
#include <initializer_list>

namespace kelvarin
{

namespace
{

constexpr int whole = 1000;
constexpr std::chrono::seconds time_of_speech{30};

} // namespace

main_status_bar::main_status_bar(QAction* stop, QWidget* parent) : QStatusBar(parent)
{
    setObjectName(QStringLiteral("StbMDI"));
    setAccessibleName(tr("Status bar"));
    const auto add_panel = [this](const char* name, int stretch) {
        auto* panel = new elided_label(this);
        panel->setObjectName(QString::fromLatin1(name));
        panel->setContentsMargins(line_unit(*this) / 3, 0, 0, 0);
        addPermanentWidget(panel, stretch);
        return panel;
    };
    file_ = add_panel("pnlFile", 2);
    line_ = new QFrame(this);
    line_->setFrameStyle(QFrame::VLine | QFrame::Sunken);
    addPermanentWidget(line_);
    title_ = add_panel("pnlTitle", 3);
    speech_ = add_panel("pnlSpeech", 5);
    speech_timer_.setSingleShot(true);
    speech_timer_.setInterval(time_of_speech);
    connect(&speech_timer_, &QTimer::timeout, this, [this] {
        show_speech(false);
        emit has_said();
    });
    show_speech(false);

    prgMain_ = new QProgressBar(this);
    prgMain_->setObjectName(QStringLiteral("prgMain"));
    prgMain_->setAccessibleName(tr("Progress of the run"));
    prgMain_->setRange(0, whole);
    prgMain_->setMaximumWidth(line_unit(*this) * 14);
    addPermanentWidget(prgMain_, 1);

    stop_ = new QToolButton(this);
    stop_->setObjectName(QStringLiteral("cmdStop"));
    stop_->setDefaultAction(stop);
    stop_->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
    addPermanentWidget(stop_);
    show_run(false);
}

void main_status_bar::show_panels(const QString& file, const QString& title)
{
    file_->show_text(file);
    title_->show_text(title);
}

void main_status_bar::say(const QString& text)
{
    speech_->show_text(text);
    show_speech(true);
    speech_timer_.start();
    QAccessibleEvent alert(speech_, QAccessible::Alert);
    QAccessible::updateAccessibility(&alert);
}

void main_status_bar::show_speech(bool shown)
{
    speech_->setVisible(shown);
    for (QWidget* panel : std::initializer_list<QWidget*>{file_, line_, title_})
        panel->setVisible(!shown);
}

void main_status_bar::show_run(bool running)
{
    prgMain_->setVisible(running);
    stop_->setVisible(running);
    if (!running) prgMain_->setValue(0);
}

void main_status_bar::show_fraction(double fraction)
{
    // A NaN must not leave the range of the bar.
    const double part = fraction > 0.0 ? std::min(fraction, 1.0) : 0.0;
    prgMain_->setValue(static_cast<int>(std::lround(part * whole)));
}

} // namespace kelvarin
