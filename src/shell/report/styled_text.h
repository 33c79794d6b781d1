// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

/// Styled text, line by line: the result of reading reports and other rich text, and the source of windows, plain text,
/// HTML and rich text.
namespace kelvarin
{

struct rgb_colour
{
    std::uint8_t red = 0;
    std::uint8_t green = 0;
    std::uint8_t blue = 0;

    friend bool operator==(const rgb_colour&, const rgb_colour&) = default;
};

/// The generic family that replaces a font that isn't installed.
enum class font_class
{
    serif,
    sans,
    monospace
};

/// The class of a font by the words in its name; `otherwise` if they are not conclusive.
font_class class_of_font(std::string_view family, font_class otherwise);

/// A run of text in one style, inside one line. The defaults are those of reports.
struct styled_run
{
    /// Valid UTF-8 without line ends or controls other than tabs.
    std::string text;
    bool bold = false;
    bool italic = false;
    bool underline = false;
    rgb_colour colour = {};
    std::string font = "Arial";
    font_class family = font_class::sans;
    /// In half points.
    int size = 18;

    friend bool operator==(const styled_run&, const styled_run&) = default;
};

using styled_line = std::vector<styled_run>;

/// The distance of tab stops, in twentieths of a point.
inline constexpr int tab_distance = 720;

/// The text of the lines, each ended by LF; tabs are preserved.
std::string plain_text_of(std::span<const styled_line> lines);

/// A plain text (UTF-8) as lines in "Courier New". Controls other than tabs become blanks.
std::vector<styled_line> styled_plain_text(std::string_view text);

/// A complete HTML document with the appearance of the lines: blanks are preserved, tabs go to their stops. `title` is
/// the document's title in a browser.
std::string html_of(std::span<const styled_line> lines, std::string_view title = "KELVARIN Report");

} // namespace kelvarin
