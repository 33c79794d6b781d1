// SPDX-License-Identifier: MIT
#pragma once

#include "batch/command_line.h"
#include "leq/leq_content.h"
#include "nle/nle_content.h"
#include "platform/message_box.h"
#include "shell/document/recognition.h"

#include <optional>
#include <string>

namespace kelvarin
{

/// A file as the command line names it: a problem, or the box that tells why there is none.
struct problem_file
{
    document_kind kind = document_kind::unknown;
    /// Of a nonlinear problem.
    nle_content content;
    /// Of linear equations.
    std::optional<leq_content> linear;
    std::optional<message_box> refusal;
};

/// Reads and recognises a file. A method on the command line replaces that of the file.
problem_file read_problem_file(const std::string& file, const batch_request& request);

} // namespace kelvarin
