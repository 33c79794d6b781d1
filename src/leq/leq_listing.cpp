// SPDX-License-Identifier: MIT
#include "leq/leq_listing.h"

#include "leq/leq_text.h"

#include <initializer_list>
#include <string_view>
#include <vector>

namespace kelvarin
{

namespace
{

void add_line(std::string& listing, std::initializer_list<std::string_view> parts)
{
    for (const std::string_view part : parts)
        listing += part;
    listing.erase(listing.find_last_not_of(' ') + 1);
    listing += '\n';
}

/// A row of the table; `text_of` gives the text of a column.
template <typename TextOf>
void add_table_line(std::string& listing, const std::vector<std::size_t>& widths, TextOf text_of)
{
    std::string line;
    for (std::size_t column = 0; column < widths.size(); ++column) {
        if (column > 0) line += column + 1 == widths.size() ? " | " : " ";
        const std::string text(text_of(static_cast<int>(column)));
        line += blanks_before(text, widths[column]) + text;
    }
    add_line(listing, {line});
}

} // namespace

std::string leq_listing(const leq_content& content, const std::filesystem::path& path)
{
    std::string listing;
    add_line(listing, {"Kelvarin LEQ Program"});
    add_line(listing, {"File: ", path.string()});
    add_line(listing, {});
    add_line(listing, {"Coefficients matrix and beta vector"});
    const std::vector<std::size_t> widths = column_widths(content);
    add_table_line(listing, widths, [&](int column) { return column_head(content, column); });
    for (int row = 0; row < content.count(); ++row)
        add_table_line(listing, widths, [&](int column) { return shown_cell(content.cell(row, column)); });
    add_line(listing, {});
    add_line(listing, {"The equations"});
    for (int row = 0; row < content.count(); ++row)
        add_line(listing, {"[", std::to_string(row + 1), "] ", equation_text(content, row)});
    add_line(listing, {});
    add_line(listing, {"Number of equations : ", std::to_string(content.count())});
    return listing;
}

} // namespace kelvarin
