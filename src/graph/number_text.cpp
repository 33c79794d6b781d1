// SPDX-License-Identifier: MIT
#include "graph/number_text.h"

#include "platform/run_time_text.h"

#include <algorithm>
#include <array>
#include <charconv>

namespace kelvarin
{

std::string exact_text(double value)
{
    std::string text = plain_text(value);
    if (numeric_value(text) == value) return text;
    std::array<char, 32> buffer{};
    const auto end = std::to_chars(buffer.data(), buffer.data() + buffer.size(), value);
    text.assign(buffer.data(), end.ptr);
    std::ranges::replace(text, 'e', 'E');
    return text;
}

} // namespace kelvarin
