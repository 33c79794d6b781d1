// SPDX-License-Identifier: MIT
#pragma once

#include "leq/leq_run.h"
#include "nle/nle_run.h"
#include "shell/document/recognition.h"
#include "shell/settings.h"
#include "tools/calculator.h"

#include <nlohmann/json.hpp>

#include <span>
#include <string>
#include <string_view>
#include <vector>

/// The JSON forms of what the batch program finds out. Keys stand in a fixed order; numbers have the
/// digits that give the same double back.
namespace kelvarin
{

using json = nlohmann::ordered_json;

/// A nonlinear problem that was run, or refused with the outcome's boxes. `report` is the plain text.
/// A text from the start, since it can be long; `depth` is as in json_text.
std::string solved_nle_text(const std::string& file, const nle_content& content, const nle_outcome& outcome,
                            std::string_view report, int depth);

/// The analysis of a nonlinear problem.
json checked_nle_json(const std::string& file, const nle_content& content);

/// The same for linear equations.
std::string solved_leq_text(const std::string& file, const leq_content& content, const leq_outcome& outcome,
                            std::string_view report, int depth);

/// What linear equations lack before they can be solved.
json checked_leq_json(const std::string& file, const leq_content& content);

/// A file that gave no problem, and why.
json refused_file_json(const std::string& file, document_kind kind, const message_box& refusal);

json calculator_json(const std::string& line, const calculator_answer& answer);

/// All settings in table order; bounds are null where a type has none.
json settings_json(const settings& store);

/// The text of a value, indented; at a depth of 1 as an element of an array, the first line without its
/// margin. Bytes that are no UTF-8 (in file names) are replaced.
std::string json_text(const json& value, int depth = 0);

/// The text of an array of values whose texts are given, each at a depth of 1.
std::string json_array_text(std::span<const std::string> values);

} // namespace kelvarin
