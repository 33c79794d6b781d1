// SPDX-License-Identifier: MIT
#pragma once

#include <filesystem>
#include <string_view>

namespace kelvarin
{

/// The forms in which a report is saved.
enum class report_format
{
    rich_text,
    plain_text,
    pdf,
    html
};

/// The filter of the dialog in which a report is saved.
inline constexpr std::string_view report_save_filter =
    "Rich text (*.rtf)|*.rtf|Text (*.txt)|*.txt|All file (*.*)|*.*|PDF (*.pdf)|*.pdf|HTML (*.html)|*.html";

/// The form by the extension of the chosen name where it has a known one, else by the chosen part of the filter,
/// counted from 1.
report_format format_of_report(const std::filesystem::path& path, int filter_index);

} // namespace kelvarin
