// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

namespace kelvarin
{

class user_interface;

/// Removes the margins of a layout inside another one and returns it.
template <class Layout> Layout* without_margins(Layout* layout)
{
    layout->setContentsMargins(0, 0, 0, 0);
    return layout;
}

/// Puts a plain text on the clipboard. An empty text leaves the clipboard unchanged.
void copy_plain_text(user_interface& user, const QString& text);

} // namespace kelvarin
