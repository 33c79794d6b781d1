// SPDX-License-Identifier: MIT
#include "opt/opt_content.h"

#include "shell/document/method_items.h"

namespace kelvarin
{

std::string_view method_text(opt_method method)
{
    return opt_method_items[static_cast<std::size_t>(method)];
}

std::optional<opt_method> opt_method_named(std::string_view text)
{
    const std::optional<std::size_t> item = method_item_named(text, opt_method_items);
    if (!item) return std::nullopt;
    return static_cast<opt_method>(*item);
}

} // namespace kelvarin
