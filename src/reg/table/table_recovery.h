// SPDX-License-Identifier: MIT
#pragma once

#include "reg/table/table_content.h"

#include <optional>
#include <string>
#include <string_view>

namespace kelvarin
{

/// The content as JSON, including blank columns with names, the number of digits and all rows.
std::string table_recovery_text(const table_content& content);

/// The content that table_recovery_text wrote. Returns nullopt if the text is not valid.
std::optional<table_content> read_table_recovery(std::string_view text);

} // namespace kelvarin
