// SPDX-License-Identifier: MIT
#pragma once

#include "batch/command_line.h"
#include "platform/message_box.h"
#include "shell/document/run_outcome.h"

#include <string>
#include <string_view>
#include <vector>

namespace kelvarin
{

/// A file written beside the answer.
struct output_file
{
    std::string name;
    std::string content;
};

/// The answer to one file. It is made without printing, so that files can be answered in any order.
struct file_answer
{
    /// The text of its JSON object if the format is JSON, at batch_request::depth_of_object.
    std::string object = {};
    /// The report as plain text or rich text; empty if there is none.
    std::string report = {};
    /// Text for standard error.
    std::string messages = {};
    int status = 0;
    bool stopped = false;
    /// What is said of a run that was stopped; for standard error.
    std::string stop_message = {};
    std::vector<output_file> outputs = {};
};

/// The part of the answer that is common to all kinds: report, messages, status. `report` is rich text, empty if there
/// is none. The kind adds the object.
file_answer file_answer_of(const std::string& file, const run_outcome& outcome, std::string report,
                           const batch_request& request);

/// The answer to a file that is no readable problem. `kind` is as in recognised_document::key.
file_answer refused_answer(const std::string& file, std::string_view kind, const message_box& refusal,
                           const batch_request& request);

/// The outcome of a problem that was refused before its run.
template <class Outcome> Outcome outcome_refused(const message_box& refusal)
{
    Outcome outcome;
    outcome.refuse(refusal);
    return outcome;
}

/// A box as lines: the program, the file, if there is one, and the title, then its text.
std::string message_lines(const std::string& file, const message_box& box);

} // namespace kelvarin
