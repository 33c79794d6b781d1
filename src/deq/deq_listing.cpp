// SPDX-License-Identifier: MIT
#include "deq/deq_listing.h"

#include "nle/equations/row_listing.h"

namespace kelvarin
{

std::string deq_listing(const deq_content& content, const std::filesystem::path& path)
{
    std::string listing = listing_head("Kelvarin DEQ Program", path);
    add_listed_rows(listing, content.rows, "Initial value");
    listing += '\n';
    add_listed_value(listing, "Independent variable", content.independent);
    add_listed_value(listing, "Initial value", content.initial_value);
    add_listed_value(listing, "Final value", content.final_value);
    return listing;
}

} // namespace kelvarin
