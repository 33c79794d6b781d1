// SPDX-License-Identifier: MIT
#include "nle/equations/set_texts.h"

#include "shell/report/rich_text.h"

namespace kelvarin
{

namespace
{

std::string names_panel(std::string_view one, std::string_view several, std::span<const std::string> names)
{
    if (names.empty()) return {};
    return std::string(names.size() == 1 ? one : several) + joined_names(names) + ' ';
}

} // namespace

std::string joined_names(std::span<const std::string> names)
{
    std::string text;
    // Also an empty name has its place between the commas.
    for (std::size_t i = 0; i < names.size(); ++i)
        text.append(i > 0 ? ", " : "").append(names[i]);
    return text;
}

std::string count_panel(std::string_view head, int count)
{
    return std::string(head) + ": " + std::to_string(count) + ' ';
}

std::string undefined_panel(std::span<const std::string> names)
{
    return names_panel("Undefined Variable: ", "Undefined Variables: ", names);
}

std::string duplicates_panel(std::span<const std::string> names)
{
    return names_panel("Variable defined more than once: ", "Variables defined more than once: ", names);
}

void add_names_section(std::string& listing, std::string_view head, std::span<const std::string> names)
{
    listing += head;
    listing += " (" + std::to_string(names.size()) + ")\\par ";
    if (!names.empty()) listing += escape_rich_text(joined_names(names)) + "\\par ";
    listing += "\\par ";
}

void add_warnings(std::string& listing, std::span<const std::string> warnings)
{
    for (const std::string& warning : warnings)
        listing.append(R"({\cf7{\b Warning:} )").append(escape_rich_text(warning)).append(R"(}\par )");
}

std::vector<std::string> plain_warnings(std::span<const std::string> warnings)
{
    std::vector<std::string> texts;
    texts.reserve(warnings.size());
    for (const std::string& warning : warnings)
        texts.push_back("Warning: " + warning);
    return texts;
}

} // namespace kelvarin
