// SPDX-License-Identifier: MIT
#include "tools/window/control_parts.h"

#include "desktop/user_interface.h"

namespace kelvarin
{

void copy_plain_text(user_interface& user, const QString& text)
{
    if (!text.isEmpty()) user.copy_text(text);
}

} // namespace kelvarin
