// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <optional>
#include <span>
#include <string>
#include <string_view>

namespace kelvarin
{

/// The index in a list of methods that a text names, as the item's text or as the index itself, from 0. Returns nullopt
/// if there is no such method.
inline std::optional<std::size_t> method_item_named(std::string_view text, std::span<const std::string_view> items)
{
    for (std::size_t i = 0; i < items.size(); ++i)
        if (text == items[i] || text == std::to_string(i)) return i;
    return std::nullopt;
}

} // namespace kelvarin
