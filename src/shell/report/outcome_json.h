// SPDX-License-Identifier: MIT
#pragma once

#include "platform/message_box.h"
#include "shell/report/json_writer.h"

#include <span>
#include <string_view>

/// The keys common to the JSON answers of all kinds.
namespace kelvarin
{

/// Begins the object of a file's answer: "file" (as the user named it), "kind" (a kind's key) and "title".
void begin_answer(json_writer& writer, std::string_view file, std::string_view kind, std::string_view title);

/// Writes "ok", and "messages" with title and text of each box.
void write_ending(json_writer& writer, bool ok, std::span<const message_box> boxes);

} // namespace kelvarin
