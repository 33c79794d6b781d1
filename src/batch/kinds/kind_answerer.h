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

/// An option of the command line that a kind of problem knows.
struct kind_option
{
    /// "--method".
    const char* name = "";
    /// The word for its value in the help, "NAME", and what the help says of it.
    const char* value_name = "";
    const char* help = "";
    /// What is wrong with a value; nullopt where nothing is.
    std::optional<std::string> (*refusal)(std::string_view value) = nullptr;
};

/// The text of a problem file that is of the answerer's kind.
struct problem_text
{
    std::string file;
    std::string text;
};

/// How the files of one kind are answered.
struct kind_answerer
{
    const problem_kind* kind = nullptr;
    std::span<const kind_option> options = {};
    /// Solves the problem. A text that is no problem of the kind gives an answer that says so. `listener` is that of
    /// this file.
    file_answer (*solve)(const problem_text& problem, const batch_request& request,
                         const batch_surroundings& surroundings, run_listener& listener) = nullptr;
    /// Says what is defined and what is missing, as JSON.
    file_answer (*check)(const problem_text& problem, const batch_request& request) = nullptr;
};

/// The kinds that are solved, in the order in which help and messages name them.
std::span<const kind_answerer> kind_answerers();

/// Null of a kind that is not solved.
const kind_answerer* answerer_of(const problem_kind& kind);

} // namespace kelvarin
