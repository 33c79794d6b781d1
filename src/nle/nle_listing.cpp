// SPDX-License-Identifier: MIT
#include "nle/nle_listing.h"

#include "platform/text_file.h"
#include "shell/general_lib.h"

#include <initializer_list>
#include <string_view>

namespace kelvarin
{

namespace
{

constexpr std::string_view indent = "    ";

void add_line(std::string& listing, std::initializer_list<std::string_view> parts)
{
    for (const std::string_view part : parts)
        listing += part;
    listing += '\n';
}

} // namespace

std::string nle_listing(const nle_content& content, const std::filesystem::path& path)
{
    std::string listing;
    add_line(listing, {"Kelvarin NLE Program"});
    add_line(listing, {"File: ", file_name_of(path.string())});
    add_line(listing, {});
    int number = 0;
    int implicit_rows = 0;
    for (const equation_row& row : content.rows) {
        if (is_implicit(row.equation, nle_row_form)) ++implicit_rows;
        add_line(listing, {"[", std::to_string(++number), "] ", trimmed(row.equation)});
        add_line(listing, {indent, "Initial guess: ", row.guess});
        if (const std::string_view comment = trimmed(row.comment); !comment.empty())
            add_line(listing, {indent, comment});
    }
    if (implicit_rows != 1) return listing;
    add_line(listing, {});
    add_line(listing, {"Lower limit: ", content.lower_bound});
    add_line(listing, {"Upper limit: ", content.upper_bound});
    return listing;
}

} // namespace kelvarin
