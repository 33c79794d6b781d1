// SPDX-License-Identifier: MIT
#pragma once

#include <QEvent>
#include <QKeyEvent>
#include <QKeySequence>

#include <algorithm>
#include <initializer_list>

namespace kelvarin
{

/// Whether a widget is asked to take one of these keys for itself. Ignoring the event leaves them to the commands of
/// the main window.
inline bool asks_for_command_key(QEvent& event, std::initializer_list<QKeySequence::StandardKey> keys)
{
    if (event.type() != QEvent::ShortcutOverride) return false;
    const auto& pressed = static_cast<QKeyEvent&>(event);
    return std::ranges::any_of(keys, [&](QKeySequence::StandardKey key) { return pressed.matches(key); });
}

} // namespace kelvarin
