// SPDX-License-Identifier: MIT
#pragma once

#include "deq/deq_run.h"
#include "shell/report/json_writer.h"

#include <string_view>

namespace kelvarin
{

/// Writes the answer to a differential problem that was run, or refused with the outcome's boxes, as one object. `file`
/// is as the user named it, `report` the plain text.
void write_deq_json(json_writer& writer, std::string_view file, const deq_content& content, const deq_outcome& outcome,
                    std::string_view report);

/// Writes the analysis of a differential problem: what is defined, what is missing.
void write_deq_check_json(json_writer& writer, std::string_view file, const deq_content& content);

} // namespace kelvarin
