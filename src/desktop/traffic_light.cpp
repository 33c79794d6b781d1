// SPDX-License-Identifier: MIT
#include "desktop/traffic_light.h"

#include "desktop/icons.h"
#include "desktop/look.h"
#include "desktop/qt_text.h"

#include <QAccessible>
#include <QEvent>
#include <QHBoxLayout>

namespace kelvarin
{

namespace
{

void announce_name(QWidget* widget)
{
    QAccessibleEvent changed(widget, QAccessible::NameChanged);
    QAccessible::updateAccessibility(&changed);
}

} // namespace

traffic_light::traffic_light(QWidget* parent)
    : QWidget(parent), imgTraffic_(new QLabel(this)), lblTraffic_(new QLabel(this))
{
    imgTraffic_->setObjectName(QStringLiteral("imgTraffic"));
    lblTraffic_->setObjectName(QStringLiteral("lblTraffic"));
    // Wide enough for the longer word, so that nothing moves when it changes.
    lblTraffic_->setMinimumWidth(lblTraffic_->fontMetrics().horizontalAdvance(tr("not ready")));
    auto* layout = new QHBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(line_unit(*this) / 3);
    layout->addWidget(imgTraffic_);
    layout->addWidget(lblTraffic_);
    set_green(false, {});
}

void traffic_light::set_green(bool green, const QString& why)
{
    setToolTip(tip_text(why));
    setAccessibleDescription(why);
    green_ = green;
    show_lamp();
    show_word();
}

void traffic_light::set_solving(bool solving)
{
    solving_ = solving;
    show_word();
}

void traffic_light::show_word()
{
    const QString word = solving_ ? tr("solving") : green_ ? tr("ready") : tr("not ready");
    if (lblTraffic_->text() == word) return;
    lblTraffic_->setText(word);
    const QString spoken = tr("Traffic light: %1").arg(word);
    setAccessibleName(spoken);
    imgTraffic_->setAccessibleName(spoken);
    announce_name(imgTraffic_);
    announce_name(this);
}

void traffic_light::show_lamp()
{
    const int side = line_unit(*this) + line_unit(*this) / 4;
    const QIcon lamp = program_icon(green_ ? "traffic_green" : "traffic_red");
    imgTraffic_->setPixmap(lamp.pixmap(QSize(side, side), devicePixelRatioF()));
}

void traffic_light::changeEvent(QEvent* event)
{
    QWidget::changeEvent(event);
    if (event->type() == QEvent::PaletteChange) show_lamp();
}

} // namespace kelvarin
