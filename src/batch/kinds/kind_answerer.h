// SPDX-License-Identifier: MIT
#pragma once

#include "batch/batch_surroundings.h"
#include "batch/command_line.h"
#include "batch/file_answer.h"
#include "shell/document/problem_kind.h"

#include <optional>
#include <span>
#include <string>
#include <string_view>

namespace kelvarin
{

/// A command-line option of a kind of problem.
struct kind_option
{
    /// "--method".
    const char* name = "";
    /// The placeholder of its value in the help, "NAME", and the help text. An option without placeholder is a switch;
    /// its value is its name.
    const char* value_name = "";
    const char* help = "";
    /// Returns what is wrong with a value, or nullopt if it is valid. Null if every value is valid.
    std::optional<std::string> (*refusal)(std::string_view value) = nullptr;
    /// The value is the name of a file that is written, with `{}` for the stem of the problem's.
    bool names_output = false;
    /// The option may be given several times.
    bool repeats = false;
};

/// Changes to what a file holds, before anything else is done with it.
inline constexpr const char* edit_option = "--edit";

/// The text of a problem file of the answerer's kind.
struct problem_text
{
    std::string file;
    std::string text;
};

/// Functions that answer the files of one kind.
struct kind_answerer
{
    const problem_kind* kind = nullptr;
    std::span<const kind_option> options = {};
    /// Solves the problem. If the text is not a problem of the kind, the answer says so. `listener` is that of this
    /// file.
    file_answer (*solve)(const problem_text& problem, const batch_request& request,
                         const batch_surroundings& surroundings, run_listener& listener) = nullptr;
    /// Reports as JSON what is defined and what is missing.
    file_answer (*check)(const problem_text& problem, const batch_request& request) = nullptr;
};

/// The kinds that can be solved, in the order of help and messages.
std::span<const kind_answerer> kind_answerers();

/// Null for a kind that can't be solved.
const kind_answerer* answerer_of(const problem_kind& kind);

} // namespace kelvarin
