// SPDX-License-Identifier: MIT
#pragma once

#include <filesystem>
#include <map>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace kelvarin
{

/// What a page of the help says that the program itself knows.
struct made_page
{
    std::string markdown;
    /// Figures by their names, such as "satellite.svg".
    std::map<std::string, std::string> figures;
};

/// A page with all its made parts written anew. A part stands between the lines `<!-- made: WHAT -->` and
/// `<!-- end -->`; WHAT is one of
///
///     run ARGUMENTS            kelvarin-solve with these arguments, and what it prints
///     report ARGUMENTS         what it prints alone
///     figure NAME: CAPTION: ARGUMENTS   the picture that `--plot` draws
///     file NAME                an example as it stands
///     examples NAME...         what these are about, and their kinds and methods
///     operators, functions     the table of operations
///     settings PREFIX          all settings whose keys begin so
///     method KIND NAME         a method with the settings that it reads
///
/// Commands run in a folder of their own that holds the examples. Throws std::runtime_error naming the line for a part
/// that can not be made.
made_page make_page(std::string_view markdown, const std::filesystem::path& examples);

/// Splits a command line at blanks; single and double quotes keep what is between them together.
std::vector<std::string> words_of_command(std::string_view line);

} // namespace kelvarin
