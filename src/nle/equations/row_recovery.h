// SPDX-License-Identifier: MIT
#pragma once

#include "nle/equations/equation_rows.h"
#include "shell/document/json_value.h"
#include "shell/report/json_writer.h"

#include <cstddef>
#include <span>
#include <string>
#include <string_view>
#include <vector>

/// What problems of equations have in common in the JSON of recovery files.
namespace kelvarin
{

/// The title of a problem and the index of its method.
struct recovered_head
{
    std::string title;
    int method = 0;
};

/// Writes the members "format", "title" and "method".
void write_recovery_head(json_writer& text, std::string_view title, int method);

/// The head of an object begun by write_recovery_head. Throws json_mismatch if it was written by a newer program or the
/// method is none of `method_count`.
recovered_head read_recovery_head(const json_value& object, std::size_t method_count);

/// Writes the member "rows".
void write_rows_member(json_writer& text, std::span<const equation_row> rows);

/// The rows of an object written by write_rows_member. Throws json_mismatch if there are none.
std::vector<equation_row> read_rows_member(const json_value& object);

} // namespace kelvarin
