// SPDX-License-Identifier: MIT
#include "nle/equations/row_listing.h"

#include "platform/text_file.h"
#include "shell/general_lib.h"

#include <initializer_list>

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

std::string listing_head(std::string_view heading, const std::filesystem::path& path)
{
    std::string listing;
    add_line(listing, {heading});
    add_line(listing, {"File: ", file_name_of(path.string())});
    add_line(listing, {});
    return listing;
}

void add_listed_rows(std::string& listing, std::span<const equation_row> rows, std::string_view guess_label)
{
    int number = 0;
    for (const equation_row& row : rows) {
        add_line(listing, {"[", std::to_string(++number), "] ", trimmed(row.equation)});
        add_line(listing, {indent, guess_label, ": ", row.guess});
        if (const std::string_view comment = trimmed(row.comment); !comment.empty())
            add_line(listing, {indent, comment});
    }
}

void add_listed_value(std::string& listing, std::string_view label, std::string_view value)
{
    add_line(listing, {label, ": ", value});
}

} // namespace kelvarin
