// SPDX-License-Identifier: MIT
#include "graph/graph_content.h"

#include "platform/text_file.h"

#include <algorithm>

namespace kelvarin
{

std::string joinable_text(std::string_view text)
{
    std::string joinable = field_text(text);
    std::ranges::replace(joinable, ',', ';');
    return joinable;
}

std::string_view reference_name(std::string_view column_name)
{
    return column_name.substr(0, column_name.find(" = "));
}

} // namespace kelvarin
