// SPDX-License-Identifier: MIT
#include "desktop/child_window.h"

#include <QMdiSubWindow>

namespace kelvarin
{

child_window::child_window(desktop_context& context, const char* kind) : context_(context)
{
    setObjectName(QString::fromLatin1(kind));
    setAttribute(Qt::WA_DeleteOnClose);
}

QString child_window::file_panel() const
{
    return QStringLiteral("No File  ");
}

QString child_window::title_panel() const
{
    return QStringLiteral("No Title ");
}

bool child_window::close_with_frame()
{
    if (auto* frame = qobject_cast<QMdiSubWindow*>(parentWidget())) return frame->close();
    return close();
}

} // namespace kelvarin
