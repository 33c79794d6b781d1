// SPDX-License-Identifier: MIT
#include "nle/nle_listing.h"

#include "nle/equations/row_listing.h"

#include <algorithm>

namespace kelvarin
{

std::string nle_listing(const nle_content& content, const std::filesystem::path& path)
{
    std::string listing = listing_head("Kelvarin NLE Program", path);
    add_listed_rows(listing, content.rows, "Initial guess");
    const auto is_unknown = [](const equation_row& row) { return is_implicit(row.equation, nle_row_form); };
    if (std::ranges::count_if(content.rows, is_unknown) != 1) return listing;
    listing += '\n';
    add_listed_value(listing, "Lower limit", content.lower_bound);
    add_listed_value(listing, "Upper limit", content.upper_bound);
    return listing;
}

} // namespace kelvarin
