// SPDX-License-Identifier: MIT
#pragma once

#include "batch/command_line.h"
#include "nle/nle_problem.h"
#include "platform/message_box.h"
#include "shell/recognition.h"

#include <optional>
#include <string>

namespace kelvarin
{

/// A file as the command line names it: a problem, or the box that tells why there is none.
struct problem_file
{
    document_kind kind = document_kind::unknown;
    nle_content content;
    std::optional<message_box> refusal;
};

/// Reads and recognises a file. A method on the command line replaces that of the file.
problem_file read_problem_file(const std::string& file, const batch_request& request);

} // namespace kelvarin
