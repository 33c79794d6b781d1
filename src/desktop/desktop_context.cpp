// SPDX-License-Identifier: MIT
#include "desktop/desktop_context.h"

#include "desktop/qt_text.h"

#include <QCoreApplication>

namespace kelvarin
{

void store_settings(const desktop_context& context)
{
    const std::optional<file_failure> failure = context.registry.flush();
    if (!failure) return;
    const QString text = QCoreApplication::translate("kelvarin", "Settings can not be saved: %1.");
    context.frame.say_once(text.arg(to_qstring(failure->reason)));
}

} // namespace kelvarin
