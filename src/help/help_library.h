// SPDX-License-Identifier: MIT
#pragma once

#include "help/help_page.h"

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace kelvarin
{

/// A line of the table of contents. The target is a page's name, "#" and an anchor may follow; it is empty for a line
/// that only holds others.
struct help_entry
{
    int depth = 0;
    std::string caption;
    std::string target;
};

/// A place that a search found.
struct help_hit
{
    const help_page* page = nullptr;
    const help_section* section = nullptr;
    /// The text around the first word found, in one line.
    std::string excerpt;

    std::string target() const;
};

/// All pages of the help. The one named "contents" has a list of links as its table of contents.
class help_library
{
public:
    explicit help_library(std::vector<help_page> pages);

    const std::vector<help_page>& pages() const { return pages_; }
    const std::vector<help_entry>& contents() const { return contents_; }
    /// The page of a target such as "graphs#zoom". Returns null if there is none.
    const help_page* page_of(std::string_view target) const;
    /// Whether a target names a page and, if it has an anchor, a heading on it.
    bool has(std::string_view target) const;

    /// The sections in which all words occur (in whatever case, also as parts of words; the title and the heading
    /// count), best first: words in the heading weigh more than words in the title of the page, and these more than
    /// words in the text.
    std::vector<help_hit> search(std::string_view words) const;

private:
    std::vector<help_page> pages_;
    std::vector<help_entry> contents_;
};

inline constexpr const char* help_contents_page = "contents";

/// The words of a search, in small letters.
std::vector<std::string> words_of_search(std::string_view text);

} // namespace kelvarin
