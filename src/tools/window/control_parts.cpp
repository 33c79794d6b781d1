// SPDX-License-Identifier: MIT
#include "tools/window/control_parts.h"

#include "desktop/user_interface.h"

#include <QMimeData>

#include <memory>
#include <utility>

namespace kelvarin
{

void copy_plain_text(user_interface& user, const QString& text)
{
    if (text.isEmpty()) return;
    auto content = std::make_unique<QMimeData>();
    content->setText(text);
    user.copy(std::move(content));
}

} // namespace kelvarin
