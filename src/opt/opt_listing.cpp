// SPDX-License-Identifier: MIT
#include "opt/opt_listing.h"

#include "nle/equations/row_listing.h"
#include "platform/text_file.h"

namespace kelvarin
{

std::string opt_listing(const opt_content& content, const std::filesystem::path& path)
{
    std::string listing = listing_head("Kelvarin OPT Program", path);
    listing.append("Trget Function:\n").append(trimmed(content.target)).append("\n\n");
    int number = 0;
    for (const equation_row& row : content.rows) {
        listing.append("[").append(std::to_string(++number)).append("] ").append(trimmed(row.equation)).append("\n");
        if (const std::string_view comment = trimmed(row.comment); !comment.empty())
            listing.append("    ").append(comment).append("\n");
    }
    return listing;
}

} // namespace kelvarin
