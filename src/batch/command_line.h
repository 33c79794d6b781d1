// SPDX-License-Identifier: MIT
#pragma once

#include "shell/document/problem_kind.h"
#include "shell/settings.h"

#include <functional>
#include <map>
#include <span>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

namespace kelvarin
{

enum class batch_action
{
    solve,
    check,
    eval,
    convert,
    show_units,
    show_constants,
    show_settings
};

enum class output_format
{
    plain,
    rtf,
    /// A JSON object per file.
    object
};

/// What a command line asks for, complete and free of contradictions.
struct batch_request
{
    batch_action action = batch_action::solve;
    /// The values of the options that only some kinds know, by the options' names; valid for one of these kinds.
    std::map<std::string, std::string, std::less<>> kind_options;
    /// The user's settings with those of the command line over them.
    settings store;
    output_format format = output_format::plain;
    /// Where the output goes in place of standard output; may hold `{}` for the stem of each file.
    std::string output;
    /// Every file is taken for a problem of this kind, whatever its name and first lines. Null where each is
    /// recognised.
    const problem_kind* kind = nullptr;
    std::vector<std::string> files;
    /// How many files are answered at a time.
    int jobs = 1;
    /// The lines behind --eval; number, units and perhaps their type behind --convert; what to look for in --units and
    /// --constants.
    std::vector<std::string> lines;

    /// The output is a file for each problem file.
    bool answers_in_a_file_each() const { return output.find("{}") != std::string::npos; }
    /// JSON objects go into one array.
    bool answers_in_one_array() const { return files.size() != 1 && !answers_in_a_file_each(); }
    /// Objects of one array are made with the margin that they have there.
    int depth_of_object() const { return answers_in_one_array() ? 1 : 0; }
    /// The value given for an option of a kind; null where it was not given.
    const std::string* option(std::string_view name) const
    {
        const auto found = kind_options.find(name);
        return found == kind_options.end() ? nullptr : &found->second;
    }
};

/// Why a command line asks for no work: a text for standard output (help, version), or a complaint.
struct command_line_end
{
    int status = 0;
    std::string text;
};

/// Reads the arguments behind the program's name. `saved` holds the user's settings.
std::variant<batch_request, command_line_end> read_command_line(std::span<const std::string> arguments,
                                                                const registry_store& saved);

/// `output` with the file's stem in place of each `{}`.
std::string output_name(const std::string& output, const std::string& file);

} // namespace kelvarin
