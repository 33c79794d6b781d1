// SPDX-License-Identifier: MIT
#pragma once

#include "platform/message_box.h"
#include "shell/settings.h"
#include "tools/calculator.h"

#include <span>
#include <string>
#include <string_view>

/// The JSON output of the batch program other than answers of problems. Keys have a fixed order.
namespace kelvarin
{

/// The object for a file that is no readable problem. `depth` is as in json_writer.
std::string refused_file_json(const std::string& file, std::string_view kind, const message_box& refusal, int depth);

/// The answers to calculator lines, in their order.
std::string calculator_json(std::span<const std::string> lines, std::span<const calculator_answer> answers);

/// All settings in table order; bounds are null if a type has none.
std::string settings_json(const settings& store);

/// The text of an array whose values are given as texts, each made for a depth of 1.
std::string json_array_text(std::span<const std::string> values);

} // namespace kelvarin
