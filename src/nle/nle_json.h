// SPDX-License-Identifier: MIT
#pragma once

#include "nle/nle_run.h"
#include "shell/report/json_writer.h"

#include <string_view>

namespace kelvarin
{

/// Writes the answer to a nonlinear problem that was run, or refused with the outcome's boxes, as one object. `file` is
/// as the user named it, `report` the plain text.
void write_nle_json(json_writer& writer, std::string_view file, const nle_content& content, const nle_outcome& outcome,
                    std::string_view report);

/// Writes the analysis of a nonlinear problem: what is defined, what is missing.
void write_nle_check_json(json_writer& writer, std::string_view file, const nle_content& content);

} // namespace kelvarin
