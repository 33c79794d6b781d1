// SPDX-License-Identifier: MIT
#pragma once

#include "leq/leq_run.h"
#include "shell/report/json_writer.h"

#include <string_view>

namespace kelvarin
{

/// Writes the answer to linear equations that were solved, or refused with the outcome's boxes, as one object. `file`
/// is as the user named it, `report` the plain text.
void write_leq_json(json_writer& writer, std::string_view file, const leq_content& content, const leq_outcome& outcome,
                    std::string_view report);

/// Writes what linear equations lack before they can be solved.
void write_leq_check_json(json_writer& writer, std::string_view file, const leq_content& content);

} // namespace kelvarin
