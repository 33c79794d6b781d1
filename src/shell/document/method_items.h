// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <optional>
#include <span>
#include <string>
#include <string_view>

namespace kelvarin
{

/// The place in a list of methods that a text names: by the item's text or by its index from 0.
inline std::optional<std::size_t> method_item_named(std::string_view text, std::span<const std::string_view> items)
{
    for (std::size_t i = 0; i < items.size(); ++i)
        if (text == items[i] || text == std::to_string(i)) return i;
    return std::nullopt;
}

} // namespace kelvarin
