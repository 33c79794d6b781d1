// SPDX-License-Identifier: MIT
#pragma once

#include "expr/basParse.h"
#include "platform/message_box.h"
#include "reg/table/table_content.h"

#include <optional>
#include <string>
#include <string_view>

namespace kelvarin
{

/// Why a text is not one of the commands cell, define, undefine, rename, digits, insert and delete with what follows
/// them. Returns nullopt if it is one.
std::optional<std::string> table_edit_refusal(std::string_view command);

/// Does to a table what its window does on the command. Rows and columns count from 1. A refused command returns the
/// box of the window; the number of digits alone is followed by a new evaluation all the same.
std::optional<message_box> edit_table(table_content& content, std::string_view command, evaluation_context& context);

} // namespace kelvarin
