// SPDX-License-Identifier: MIT
#pragma once

#include <filesystem>
#include <string_view>

namespace kelvarin
{

/// The file formats of reports.
enum class report_format
{
    rich_text,
    plain_text,
    pdf,
    html
};

/// The filter of the dialog for saving a report.
inline constexpr std::string_view report_save_filter =
    "Rich text (*.rtf)|*.rtf|Text (*.txt)|*.txt|All file (*.*)|*.*|PDF (*.pdf)|*.pdf|HTML (*.html)|*.html";

/// The format by the extension of the chosen name if it is a known one, else by the chosen pair of the filter (from 1).
report_format format_of_report(const std::filesystem::path& path, int filter_index);

} // namespace kelvarin
