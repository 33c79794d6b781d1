// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

namespace kelvarin
{

class user_interface;

/// A layout without margins of its own, inside another one.
template <class Layout> Layout* inner(Layout* layout)
{
    layout->setContentsMargins(0, 0, 0, 0);
    return layout;
}

/// Puts a plain text on the clipboard. An empty one changes nothing: what is there is worth more.
void copy_plain_text(user_interface& user, const QString& text);

} // namespace kelvarin
