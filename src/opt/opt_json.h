// SPDX-License-Identifier: MIT
#pragma once

#include "opt/opt_run.h"
#include "shell/report/json_writer.h"

#include <string_view>

namespace kelvarin
{

/// Writes the answer to an optimization problem that was run, or refused with the outcome's boxes, as one object.
/// `file` is as the user named it, `report` the plain text.
void write_opt_json(json_writer& writer, std::string_view file, const opt_content& content, const opt_outcome& outcome,
                    std::string_view report);

/// Writes the analysis of an optimization problem: what is defined, what is missing.
void write_opt_check_json(json_writer& writer, std::string_view file, const opt_content& content);

} // namespace kelvarin
