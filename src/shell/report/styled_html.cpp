// SPDX-License-Identifier: MIT
#include "shell/report/styled_text.h"

#include <algorithm>
#include <string>

namespace kelvarin
{

namespace
{

/// The paper is white and plain text black, independent of the browser's colours. Tab stops are half an inch apart, but
/// 8 columns in lines entirely in fixed width, so that tabulated columns stay aligned.
constexpr std::string_view style_sheet = "body{background:#ffffff;color:#000000}"
                                         "p{margin:0;white-space:pre-wrap;tab-size:0.5in}"
                                         "p.columns{tab-size:8}";
static_assert(tab_distance == 720, "half an inch");

std::string escape_html(std::string_view text)
{
    std::string escaped;
    escaped.reserve(text.size());
    for (const char byte : text) {
        switch (byte) {
        case '&':
            escaped += "&amp;";
            break;
        case '<':
            escaped += "&lt;";
            break;
        case '>':
            escaped += "&gt;";
            break;
        case '"':
            escaped += "&quot;";
            break;
        default:
            escaped += byte;
        }
    }
    return escaped;
}

std::string_view generic_family(font_class family)
{
    switch (family) {
    case font_class::serif:
        return "serif";
    case font_class::sans:
        return "sans-serif";
    case font_class::monospace:
        break;
    }
    return "monospace";
}

void append_hex(std::string& text, std::uint8_t byte)
{
    static constexpr std::string_view digits = "0123456789abcdef";
    text += digits[byte / 16u];
    text += digits[byte % 16u];
}

std::string style_of(const styled_run& run)
{
    std::string font = run.font;
    // These would end the quoted name.
    std::erase_if(font, [](char byte) { return byte == '\'' || byte == '\\'; });
    std::string style = "font-family:'" + font + "',";
    style += generic_family(run.family);
    style += ";font-size:" + std::to_string(run.size / 2) + (run.size % 2 == 0 ? "pt" : ".5pt");
    style += ";color:#";
    append_hex(style, run.colour.red);
    append_hex(style, run.colour.green);
    append_hex(style, run.colour.blue);
    if (run.bold) style += ";font-weight:bold";
    if (run.italic) style += ";font-style:italic";
    if (run.underline) style += ";text-decoration:underline";
    return style;
}

void append_line(std::string& html, const styled_line& line)
{
    const bool fixed_width =
        std::ranges::all_of(line, [](const styled_run& run) { return run.family == font_class::monospace; });
    html += fixed_width && !line.empty() ? R"(<p class="columns">)" : "<p>";
    for (const styled_run& run : line) {
        html += R"(<span style=")" + escape_html(style_of(run)) + R"(">)";
        html += escape_html(run.text);
        html += "</span>";
    }
    // An empty paragraph would have no height.
    if (line.empty()) html += "<br>";
    html += "</p>\n";
}

} // namespace

std::string html_of(std::span<const styled_line> lines, std::string_view title)
{
    std::string html = "<!DOCTYPE html>\n<html lang=\"en\">\n<head>\n<meta charset=\"utf-8\">\n<title>";
    html += escape_html(title);
    html += "</title>\n<style>";
    html += style_sheet;
    html += "</style>\n</head>\n<body>\n";
    for (const styled_line& line : lines)
        append_line(html, line);
    html += "</body>\n</html>\n";
    return html;
}

} // namespace kelvarin
