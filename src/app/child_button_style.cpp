// SPDX-License-Identifier: MIT
#include "app/child_button_style.h"

#include "desktop/look.h"

#include <QApplication>
#include <QPainter>
#include <QStyleOption>

#include <algorithm>

namespace kelvarin
{

namespace
{

enum class button_sign
{
    minimise,
    maximise,
    restore,
    close
};

void draw_sign(QPainter& painter, button_sign sign, const QRect& button, const QColor& colour)
{
    constexpr double part_of_button = 0.45;
    constexpr double line_width = 1.5;
    const double side = std::min(button.width(), button.height()) * part_of_button;
    QRectF box(0, 0, side, side);
    box.moveCenter(QRectF(button).center());
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(colour, line_width));
    switch (sign) {
    case button_sign::minimise:
        painter.drawLine(box.bottomLeft(), box.bottomRight());
        break;
    case button_sign::maximise:
        painter.drawRect(box);
        painter.drawLine(box.topLeft() + QPointF(0, line_width), box.topRight() + QPointF(0, line_width));
        break;
    case button_sign::restore: {
        const double shift = side / 3;
        painter.drawRect(box.adjusted(0, shift, -shift, 0));
        painter.drawPolyline(QList<QPointF>{box.topLeft() + QPointF(shift, shift), box.topLeft() + QPointF(shift, 0),
                                            box.topRight(), box.bottomRight() - QPointF(0, shift),
                                            box.bottomRight() - QPointF(shift, shift)});
        break;
    }
    case button_sign::close:
        painter.drawLine(box.topLeft(), box.bottomRight());
        painter.drawLine(box.topRight(), box.bottomLeft());
        break;
    }
    painter.restore();
}

/// A button under the pointer has a lighter background.
void draw_ground(QPainter& painter, const QStyleOptionComplex& option, QStyle::SubControl button, const QRect& place)
{
    if (!option.activeSubControls.testFlag(button)) return;
    constexpr double lightened = 0.25;
    const QColor text = option.palette.color(QPalette::WindowText);
    painter.fillRect(place, mixed(option.palette.color(QPalette::Window), text, lightened));
}

} // namespace

void child_button_style::install()
{
    const QString name = QApplication::style()->name();
    if (name == QLatin1String("fusion") || name == QLatin1String("windows"))
        QApplication::setStyle(new child_button_style(name));
}

void child_button_style::drawComplexControl(ComplexControl control, const QStyleOptionComplex* option,
                                            QPainter* painter, const QWidget* widget) const
{
    const bool is_dark_here = is_dark(option->palette);
    if (control == CC_TitleBar && is_dark_here)
        draw_title_buttons(*option, *painter, widget);
    else if (control == CC_MdiControls && is_dark_here)
        draw_menu_buttons(*option, *painter, widget);
    else
        QProxyStyle::drawComplexControl(control, option, painter, widget);
}

void child_button_style::draw_title_buttons(const QStyleOptionComplex& option, QPainter& painter,
                                            const QWidget* widget) const
{
    const auto* title = qstyleoption_cast<const QStyleOptionTitleBar*>(&option);
    if (!title) return QProxyStyle::drawComplexControl(CC_TitleBar, &option, &painter, widget);
    QStyleOptionTitleBar bare = *title;
    bare.subControls &=
        ~(SC_TitleBarMinButton | SC_TitleBarMaxButton | SC_TitleBarNormalButton | SC_TitleBarCloseButton);
    QProxyStyle::drawComplexControl(CC_TitleBar, &bare, &painter, widget);

    const bool minimised = title->titleBarState & Qt::WindowMinimized;
    const bool maximised = title->titleBarState & Qt::WindowMaximized;
    const bool can_minimise = title->titleBarFlags & Qt::WindowMinimizeButtonHint;
    const bool can_maximise = title->titleBarFlags & Qt::WindowMaximizeButtonHint;
    struct shown_button
    {
        SubControl control;
        button_sign sign;
        bool shown;
    };
    for (const auto& [control, sign, shown] :
         {shown_button{SC_TitleBarMinButton, button_sign::minimise, can_minimise && !minimised},
          {SC_TitleBarMaxButton, button_sign::maximise, can_maximise && !maximised},
          {SC_TitleBarNormalButton, button_sign::restore, (can_minimise && minimised) || (can_maximise && maximised)},
          {SC_TitleBarCloseButton, button_sign::close, bool(title->titleBarFlags & Qt::WindowSystemMenuHint)}}) {
        const QRect place = proxy()->subControlRect(CC_TitleBar, title, control, widget);
        if (!shown || !title->subControls.testFlag(control) || !place.isValid()) continue;
        draw_ground(painter, *title, control, place);
        draw_sign(painter, sign, place, title->palette.color(QPalette::WindowText));
    }
}

void child_button_style::draw_menu_buttons(const QStyleOptionComplex& option, QPainter& painter,
                                           const QWidget* widget) const
{
    struct shown_button
    {
        SubControl control;
        button_sign sign;
    };
    for (const auto& [control, sign] : {shown_button{SC_MdiMinButton, button_sign::minimise},
                                        {SC_MdiNormalButton, button_sign::restore},
                                        {SC_MdiCloseButton, button_sign::close}}) {
        if (!option.subControls.testFlag(control)) continue;
        const QRect place = proxy()->subControlRect(CC_MdiControls, &option, control, widget);
        draw_ground(painter, option, control, place);
        draw_sign(painter, sign, place, option.palette.color(QPalette::WindowText));
    }
}

} // namespace kelvarin
