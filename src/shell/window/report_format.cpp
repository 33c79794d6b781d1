// SPDX-License-Identifier: MIT
#include "shell/window/report_format.h"

#include "platform/letter_case.h"

#include <string>

namespace kelvarin
{

report_format format_of_report(const std::filesystem::path& path, int filter_index)
{
    // ".txt" and ".rtf" decide the format anywhere in the name: "report.txt.bak".
    const std::string name = lower_case(path.filename().string());
    if (name.find(".txt") != name.npos) return report_format::plain_text;
    if (name.find(".rtf") != name.npos) return report_format::rich_text;
    if (name.ends_with(".pdf")) return report_format::pdf;
    if (name.ends_with(".html") || name.ends_with(".htm")) return report_format::html;
    switch (filter_index) {
    case 2:
        return report_format::plain_text;
    case 4:
        return report_format::pdf;
    case 5:
        return report_format::html;
    default:
        return report_format::rich_text;
    }
}

} // namespace kelvarin
