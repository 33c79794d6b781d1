// SPDX-License-Identifier: MIT
#pragma once

#include "reg/table/import_form.h"
#include "reg/table/table_content.h"

#include <string>

namespace kelvarin
{

/// The used part of a table as delimited text: a line of names, then the rows, ended by CR LF; cells are quoted where
/// they must be. Numbers get the decimal sign of the form.
std::string export_text(const table_content& content, const import_form& form);

} // namespace kelvarin
