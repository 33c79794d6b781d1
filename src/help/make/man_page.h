// SPDX-License-Identifier: MIT
#pragma once

#include <map>
#include <string>
#include <string_view>

namespace kelvarin
{

struct man_head
{
    std::string_view name;
    int section = 1;
    /// "solves problem files", behind the name.
    std::string_view summary;
    std::string_view see_also;
};

/// The manual pages by the names of their files, made of pages of the help by their names.
std::map<std::string, std::string> man_pages(const std::map<std::string, std::string>& help);

/// A page of the help as a manual page: headings become sections, tables lists of terms; pictures are left out.
std::string man_page_of(std::string_view markdown, const man_head& head);

} // namespace kelvarin
