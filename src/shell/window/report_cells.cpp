// SPDX-License-Identifier: MIT
#include "shell/window/report_cells.h"

#include "desktop/qt_text.h"
#include "platform/run_time_text.h"
#include "platform/text_file.h"
#include "shell/report/rich_text.h"

#include <algorithm>
#include <string_view>

namespace kelvarin
{

namespace
{

std::string text_of(const styled_line& line)
{
    std::string text;
    for (const styled_run& run : line)
        text += run.text;
    return text;
}

/// Splits at single blanks.
std::vector<std::string_view> words_of(std::string_view text)
{
    std::vector<std::string_view> words;
    while (!text.empty()) {
        const std::size_t blank = std::min(text.find(' '), text.size());
        words.push_back(text.substr(0, blank));
        text.remove_prefix(std::min(blank + 1, text.size()));
    }
    return words;
}

/// Adds one cell, or several if the text consists of numbers only.
void add_cells(std::vector<std::string>& cells, std::string_view text)
{
    const std::vector<std::string_view> words = words_of(text);
    if (std::ranges::all_of(words, [](std::string_view word) { return is_numeric(word); }))
        cells.insert(cells.end(), words.begin(), words.end());
    else
        cells.emplace_back(text);
}

std::size_t end_of_cell(std::string_view text)
{
    return std::min({text.find("  "), text.find('\t'), text.size()});
}

std::vector<std::string> split_cells(std::string_view text)
{
    std::vector<std::string> cells;
    for (text = trimmed(text); !text.empty(); text = trimmed(text)) {
        const std::size_t end = end_of_cell(text);
        add_cells(cells, text.substr(0, end));
        text.remove_prefix(end);
    }
    return cells;
}

std::string separated_by_tabs(std::span<const styled_line> lines)
{
    std::string text;
    for (const styled_line& line : lines) {
        const char* separator = "";
        for (const std::string& cell : cells_of(line)) {
            text += separator;
            text += cell;
            separator = "\t";
        }
        text += '\n';
    }
    return text;
}

QString html_table_of(std::span<const styled_line> lines)
{
    QString html = QStringLiteral("<!DOCTYPE html>\n<html>\n<head>\n<meta charset=\"utf-8\">\n</head>\n"
                                  "<body>\n<table>\n");
    for (const styled_line& line : lines) {
        if (line.empty()) continue;
        html += QLatin1String("<tr>");
        for (const std::string& cell : cells_of(line))
            html += QStringLiteral("<td>%1</td>").arg(to_qstring(cell).toHtmlEscaped());
        html += QLatin1String("</tr>\n");
    }
    return html + QLatin1String("</table>\n</body>\n</html>\n");
}

/// Whether the lines are rows of tables, at least one, and empty lines.
bool is_table(std::span<const styled_line> lines)
{
    const auto fits = [](const styled_line& line) { return line.empty() || is_table_row(line); };
    return std::ranges::any_of(lines, is_table_row) && std::ranges::all_of(lines, fits);
}

} // namespace

bool is_fixed_width(const styled_line& line)
{
    const auto fixed = [](const styled_run& run) { return run.family == font_class::monospace; };
    return std::ranges::any_of(line, fixed) && std::ranges::all_of(line, [&](const styled_run& run) {
               return fixed(run) || run.text.find_first_not_of(' ') == std::string::npos;
           });
}

std::vector<std::string> cells_of(const styled_line& line)
{
    const std::string text = text_of(line);
    if (is_fixed_width(line)) {
        if (std::vector<std::string> cells = split_cells(text); cells.size() > 1) return cells;
    }
    std::string one = text;
    std::ranges::replace(one, '\t', ' ');
    return {std::move(one)};
}

bool is_table_row(const styled_line& line)
{
    return cells_of(line).size() > 1;
}

std::unique_ptr<QMimeData> clipboard_content(std::span<const styled_line> lines)
{
    auto content = std::make_unique<QMimeData>();
    // The selection ends inside its last line.
    QString plain = to_qstring(plain_text_of(lines));
    plain.chop(1);
    content->setText(plain);
    content->setHtml(is_table(lines) ? html_table_of(lines) : to_qstring(html_of(lines)));
    const auto bytes = [](const std::string& text) { return QByteArray::fromStdString(text); };
    content->setData(QStringLiteral("text/rtf"), bytes(rich_text_of(lines)));
    content->setData(QStringLiteral("text/tab-separated-values"), bytes(separated_by_tabs(lines)));
    return content;
}

} // namespace kelvarin
