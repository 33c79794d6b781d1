// SPDX-License-Identifier: MIT
#pragma once

#include "batch/command_line.h"
#include "platform/message_box.h"
#include "shell/document/run_outcome.h"

#include <string>
#include <string_view>

namespace kelvarin
{

/// What one file gave. It is made without printing anything, so that files can be answered in any order.
struct file_answer
{
    /// The text of its JSON object, where JSON is asked for; of one among several at a depth of 1.
    std::string object = {};
    /// The report in the format asked for, text or rtf; empty where there is none.
    std::string report = {};
    /// For standard error.
    std::string messages = {};
    int status = 0;
    bool stopped = false;
};

/// What the outcomes of all kinds become in the same way: report, messages, status. `report` is rich text, empty where
/// there is none. The object is left to the kind.
file_answer answer_of(const std::string& file, const run_outcome& outcome, std::string report,
                      const batch_request& request);

/// The answer to a file that gave no problem. `kind` is as in recognised_document::key.
file_answer refused_answer(const std::string& file, std::string_view kind, const message_box& refusal,
                           const batch_request& request);

/// The outcome of a problem that was refused before its run.
template <class Outcome> Outcome outcome_refused(const message_box& refusal)
{
    Outcome outcome;
    outcome.refuse(refusal);
    return outcome;
}

/// A box as lines: its title and the file, where there is one, then its text.
std::string message_lines(const std::string& file, const message_box& box);

} // namespace kelvarin
