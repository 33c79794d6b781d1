// SPDX-License-Identifier: MIT
#pragma once

#include "platform/clock.h"
#include "shell/document/problem_kind.h"
#include "shell/settings.h"

#include <functional>
#include <map>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

namespace kelvarin
{

/// The program's name, with which its messages begin.
inline constexpr std::string_view batch_program_name = "kelvarin-solve";
/// The name of a FILE that stands for standard input, and of an output that stands for standard output.
inline constexpr std::string_view standard_stream = "-";

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
    /// One JSON object per file.
    object
};

/// A parsed command line, complete and consistent.
struct batch_request
{
    batch_action action = batch_action::solve;
    /// The values of the options that only some kinds have, by the options' names, at least one for each name; valid
    /// for one of these kinds.
    std::map<std::string, std::vector<std::string>, std::less<>> kind_options;
    /// The user's settings, overridden by those of the command line.
    settings store;
    output_format format = output_format::plain;
    /// The output file; empty or "-" for standard output. May contain `{}` for the stem of each file.
    std::string output;
    /// The kind of every file, whatever its name and first lines; null if each file's kind is recognised.
    const problem_kind* kind = nullptr;
    std::vector<std::string> files;
    /// The date of all reports, whose elapsed times are 0 then; nullopt for the computer's clock.
    std::optional<calendar_date> date;
    /// Number of files answered at the same time.
    int jobs = 1;
    /// The lines after --eval; number, units and optionally their type after --convert; the search words of --units and
    /// --constants.
    std::vector<std::string> lines;

    /// Whether there is an output file for each problem file.
    bool answers_in_a_file_each() const { return output.find("{}") != std::string::npos; }
    /// Whether JSON objects are written as one array.
    bool answers_in_one_array() const { return files.size() != 1 && !answers_in_a_file_each(); }
    /// Depth of an object for json_writer.
    int depth_of_object() const { return answers_in_one_array() ? 1 : 0; }
    /// The value of an option of a kind; null if it was not given.
    const std::string* option(std::string_view name) const
    {
        const auto found = kind_options.find(name);
        return found == kind_options.end() ? nullptr : &found->second.front();
    }
    /// The values of an option that may be repeated, in order.
    std::span<const std::string> values_of(std::string_view name) const
    {
        const auto found = kind_options.find(name);
        if (found == kind_options.end()) return {};
        return found->second;
    }
};

/// The end of the program without work: a text for standard output (help, version), or an error message.
struct command_line_end
{
    int status = 0;
    std::string text;
};

/// Parses the arguments after the program's name. `saved` holds the user's settings.
std::variant<batch_request, command_line_end> read_command_line(std::span<const std::string> arguments,
                                                                const registry_store& saved);

/// `output` with each `{}` replaced by the file's stem, "stdin" for standard input.
std::string output_name(const std::string& output, const std::string& file);

/// Why no output may be written to the file `name`: it is one of the problems. Returns nullopt if it is none of them.
std::optional<std::string> replacement_refusal(const std::string& name, const batch_request& request);

} // namespace kelvarin
