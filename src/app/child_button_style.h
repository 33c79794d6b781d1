// SPDX-License-Identifier: MIT
#pragma once

#include <QProxyStyle>

namespace kelvarin
{

/// The style of desktops without a style of their own, with readable buttons of child windows in a dark palette, which
/// it draws black on dark grey.
class child_button_style final : public QProxyStyle
{
    Q_OBJECT

public:
    using QProxyStyle::QProxyStyle;

    /// Uses this style for all windows if the desktop's one needs it.
    static void install();

    void drawComplexControl(ComplexControl control, const QStyleOptionComplex* option, QPainter* painter,
                            const QWidget* widget) const override;

private:
    void draw_title_buttons(const QStyleOptionComplex& option, QPainter& painter, const QWidget* widget) const;
    void draw_menu_buttons(const QStyleOptionComplex& option, QPainter& painter, const QWidget* widget) const;
};

} // namespace kelvarin
