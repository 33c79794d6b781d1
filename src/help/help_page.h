// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace kelvarin
{

struct help_heading
{
    int level = 1;
    std::string text;
    /// The fragment of a link to it, as forges make it of the text.
    std::string anchor;
};

/// A part of a page, from one heading to the next.
struct help_section
{
    help_heading heading;
    /// Its text in reading form, without marks and addresses of links.
    std::string text;
};

/// A link or a picture: `[caption](target)`.
struct help_link
{
    std::string caption;
    std::string target;
};

/// A page of the help: Markdown whose first heading is its title.
struct help_page
{
    /// The name of its file without ".md".
    std::string name;
    std::string title;
    /// As it is shown: without comments.
    std::string markdown;
    std::vector<help_section> sections;
    /// Links in the order of the text, those in code left out.
    std::vector<help_link> links;
};

help_page read_help_page(std::string name, std::string_view markdown);

/// "The light: red or green?" becomes "the-light-red-or-green".
std::string anchor_of_heading(std::string_view heading);

/// A line of Markdown as it reads: without marks of emphasis and code, links reduced to their captions.
std::string reading_form(std::string_view markdown_line);

} // namespace kelvarin
