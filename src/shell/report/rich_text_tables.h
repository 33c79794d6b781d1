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

/// The fonts of a document by their numbers, which need not be in order.
using font_table = std::map<int, rich_text_font>;
using colour_table = std::vector<rgb_colour>;

/// The tables of reports as they stand behind \fonttbl and \colortbl.
inline constexpr std::string_view report_font_group =
    R"({\f0\fnil MS Sans Serif;}{\f1\froman\fcharset2{\*\fname Symbol;}MT Symbol;})"
    R"({\f2\fswiss\fcharset177 MS Sans Serif;}{\f3\fswiss\fprq2 Arial;}{\f4\froman Times New Roman;})"
    R"({\f5\fswiss\fprq2 Times New Roman;}{\f6\fmodern\fprq1 Courier New;})";
inline constexpr std::string_view report_colour_group =
    R"(\red0\green0\blue0;\red0\green0\blue160;\red150\green0\blue0;\red0\green128\blue0;)"
    R"(\red128\green128\blue0;\red0\green128\blue128;\red128\green0\blue128;\red254\green0\blue0;)";

/// The same, read once.
const font_table& report_fonts();
const colour_table& report_colours();

/// Reads what stands behind \fonttbl in its group. A font's class comes from its name, and where that tells
/// nothing from its family word or its pitch.
font_table read_font_table(std::string_view group);
/// Reads what stands behind \colortbl in its group. An entry without numbers, the "automatic" one, is black.
colour_table read_colour_table(std::string_view group);

} // namespace kelvarin
