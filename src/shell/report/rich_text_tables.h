// SPDX-License-Identifier: MIT
#pragma once

#include "shell/report/styled_text.h"

#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace kelvarin
{

struct rich_text_font
{
    std::string name;
    font_class family = font_class::sans;
};

/// The fonts of a document by number, in any order.
using font_table = std::map<int, rich_text_font>;
using colour_table = std::vector<rgb_colour>;

/// The contents of the \fonttbl and \colortbl groups of reports.
inline constexpr std::string_view report_font_group =
    R"({\f0\fnil MS Sans Serif;}{\f1\froman\fcharset2{\*\fname Symbol;}MT Symbol;})"
    R"({\f2\fswiss\fcharset177 MS Sans Serif;}{\f3\fswiss\fprq2 Arial;}{\f4\froman Times New Roman;})"
    R"({\f5\fswiss\fprq2 Times New Roman;}{\f6\fmodern\fprq1 Courier New;})";
inline constexpr std::string_view report_colour_group =
    R"(\red0\green0\blue0;\red0\green0\blue160;\red150\green0\blue0;\red0\green128\blue0;)"
    R"(\red128\green128\blue0;\red0\green128\blue128;\red128\green0\blue128;\red254\green0\blue0;)";

/// The same, parsed once.
const font_table& report_fonts();
const colour_table& report_colours();

/// Reads the group's content after \fonttbl. A font's class comes from its name, or if the name is not conclusive from
/// its family word or pitch.
font_table read_font_table(std::string_view group);
/// Reads the group's content after \colortbl. An entry without numbers, the "automatic" one, is black.
colour_table read_colour_table(std::string_view group);

} // namespace kelvarin
