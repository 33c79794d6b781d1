// SPDX-License-Identifier: MIT
#pragma once

#include <QBoxLayout>
#include <QPushButton>
#include <QString>

namespace kelvarin
{

/// Sets the control's object name and returns the control.
template <class Control> Control* named(Control* control, const char* name)
{
    control->setObjectName(QString::fromLatin1(name));
    return control;
}

/// A button that never becomes the default button: Enter belongs to the window's grid.
inline QPushButton* make_button(const QString& caption, const char* name, const QString& tip)
{
    auto* button = named(new QPushButton(caption), name);
    button->setAutoDefault(false);
    button->setToolTip(tip);
    return button;
}

/// Appends such a button to a row of buttons; a click calls `slot` of `receiver`.
template <class Receiver, class Slot>
QPushButton* add_button(QBoxLayout& row, const QString& caption, const char* name, const QString& tip,
                        const Receiver* receiver, Slot slot)
{
    QPushButton* button = make_button(caption, name, tip);
    QObject::connect(button, &QPushButton::clicked, receiver, slot);
    row.addWidget(button);
    return button;
}

} // namespace kelvarin
