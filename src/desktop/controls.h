// SPDX-License-Identifier: MIT
#pragma once

#include <QPushButton>
#include <QString>

namespace kelvarin
{

/// The control itself, under the name by which it is found.
template <class Control> Control* named(Control* control, const char* name)
{
    control->setObjectName(QString::fromLatin1(name));
    return control;
}

/// A button no wider than its text needs, which leaves the keyboard's Enter to the window's grid.
inline QPushButton* make_button(const QString& caption, const char* name, const QString& tip)
{
    auto* button = named(new QPushButton(caption), name);
    button->setAutoDefault(false);
    button->setToolTip(tip);
    return button;
}

} // namespace kelvarin
