// SPDX-License-Identifier: MIT
#include "graph/text_metrics.h"

#include "platform/utf8.h"

#include <array>
#include <cstddef>

namespace kelvarin
{

namespace
{

constexpr char32_t first_letter = 0x20;
constexpr char32_t first_control = 0x7F;
constexpr char32_t first_upper_letter = 0xA0;
constexpr char32_t end_of_table = 0x100;

using advance_table = std::array<short, (first_control - first_letter) + (end_of_table - first_upper_letter)>;

/// Thousandths of the font's size for U+0020 to U+007E and U+00A0 to U+00FF, measured on DejaVu Sans 2.37.
constexpr advance_table regular_advances = {
    318, 401, 460, 838, 636, 950, 780, 275, 390, 390, 500,  838, 318, 361, 318, 337, 636,  636, 636, 636, 636, 636,
    636, 636, 636, 636, 337, 337, 838, 838, 838, 531, 1000, 684, 686, 698, 770, 632, 575,  775, 752, 295, 295, 656,
    557, 863, 748, 787, 603, 787, 695, 635, 611, 732, 684,  989, 685, 611, 685, 390, 337,  390, 838, 500, 500, 613,
    635, 550, 635, 615, 352, 635, 634, 278, 278, 579, 278,  974, 634, 612, 635, 635, 411,  521, 392, 634, 592, 818,
    592, 592, 525, 636, 337, 636, 838, 318, 401, 636, 636,  636, 636, 337, 500, 500, 1000, 471, 612, 838, 361, 1000,
    500, 500, 838, 401, 401, 500, 636, 636, 318, 500, 401,  471, 612, 969, 969, 969, 531,  684, 684, 684, 684, 684,
    684, 974, 698, 632, 632, 632, 632, 295, 295, 295, 295,  775, 748, 787, 787, 787, 787,  787, 838, 787, 732, 732,
    732, 732, 611, 605, 630, 613, 613, 613, 613, 613, 613,  982, 550, 615, 615, 615, 615,  278, 278, 278, 278, 612,
    634, 612, 612, 612, 612, 612, 838, 612, 634, 634, 634,  634, 592, 635, 592};
constexpr advance_table bold_advances = {
    348, 456, 521, 838,  696,  1002, 872, 306, 457, 457,  523, 838, 380,  415,  380, 365,  696, 696,  696, 696,
    696, 696, 696, 696,  696,  696,  400, 400, 838, 838,  838, 580, 1000, 774,  762, 734,  830, 683,  683, 821,
    837, 372, 372, 775,  637,  995,  837, 850, 733, 850,  770, 720, 682,  812,  774, 1103, 771, 724,  725, 457,
    365, 457, 838, 500,  500,  675,  716, 593, 716, 678,  435, 716, 712,  343,  343, 665,  343, 1042, 712, 687,
    716, 716, 493, 595,  478,  712,  652, 924, 645, 652,  582, 712, 365,  712,  838, 348,  456, 696,  696, 636,
    696, 365, 500, 500,  1000, 564,  646, 838, 415, 1000, 500, 500, 838,  438,  438, 500,  736, 636,  380, 500,
    438, 564, 646, 1035, 1035, 1035, 580, 774, 774, 774,  774, 774, 774,  1085, 734, 683,  683, 683,  683, 372,
    372, 372, 372, 838,  837,  850,  850, 850, 850, 850,  838, 850, 812,  812,  812, 812,  724, 738,  719, 675,
    675, 675, 675, 675,  675,  1048, 593, 678, 678, 678,  678, 343, 343,  343,  343, 687,  712, 687,  687, 687,
    687, 687, 838, 687,  712,  712,  712, 712, 652, 716,  652};

constexpr double thousandth = 1e-3;
constexpr double ascent_of_size = 0.928;
constexpr double descent_of_size = 0.236;
/// Greek and Cyrillic letters are at most this wide, ideographs exactly; in font sizes.
constexpr double other_letter = 1.0;
constexpr char32_t first_wide_sign = 0x2E80;
constexpr char32_t ellipsis_code = 0x2026;
constexpr std::string_view ellipsis = "\xE2\x80\xA6";

double advance_of(char32_t code, const advance_table& table)
{
    if (code >= first_letter && code < first_control) return table[code - first_letter] * thousandth;
    if (code >= first_upper_letter && code < end_of_table)
        return table[code - first_upper_letter + (first_control - first_letter)] * thousandth;
    const bool is_wide = code == ellipsis_code || code >= first_wide_sign;
    return is_wide ? 1.0 : other_letter;
}

class table_metrics final : public text_metrics
{
public:
    double width(std::string_view text, const graph_font& font) const override
    {
        const advance_table& table = font.bold ? bold_advances : regular_advances;
        double width = 0.0;
        while (!text.empty()) {
            const utf8_letter letter = first_utf8_letter(text).value_or(utf8_letter{U'?', 1});
            width += advance_of(letter.code, table);
            text.remove_prefix(letter.length);
        }
        return width * font.size;
    }
    double ascent(const graph_font& font) const override { return ascent_of_size * font.size; }
    double descent(const graph_font& font) const override { return descent_of_size * font.size; }
};

} // namespace

const text_metrics& sans_serif_metrics()
{
    static const table_metrics metrics;
    return metrics;
}

std::string elided_text(std::string_view text, double width, const graph_font& font, const text_metrics& metrics)
{
    if (metrics.width(text, font) <= width) return std::string(text);
    std::string kept;
    std::string best;
    while (!text.empty()) {
        const std::string elided = kept + std::string(ellipsis);
        if (metrics.width(elided, font) > width) break;
        best = elided;
        const std::size_t length = first_utf8_letter(text).value_or(utf8_letter{U'?', 1}).length;
        kept += text.substr(0, length);
        text.remove_prefix(length);
    }
    return best;
}

} // namespace kelvarin
