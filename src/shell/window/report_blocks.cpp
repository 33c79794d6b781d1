// SPDX-License-Identifier: MIT
#include "shell/window/report_blocks.h"

#include "desktop/qt_text.h"
#include "platform/run_time_text.h"
#include "shell/window/report_cells.h"
#include "shell/window/report_document.h"

#include <algorithm>

namespace kelvarin
{

namespace
{

constexpr qsizetype columns_of_tab = 8;

/// Characters from `from` up to, but not including, `to`.
struct column_range
{
    qsizetype from = 0;
    qsizetype to = 0;
};

/// The line with its tabs, whose stops are at every eighth column, replaced by blanks.
styled_line without_tabs(const styled_line& line)
{
    styled_line spread;
    qsizetype column = 0;
    for (const styled_run& run : line) {
        QString text;
        for (const QChar letter : to_qstring(run.text)) {
            const qsizetype blanks = letter == QLatin1Char('\t') ? columns_of_tab - column % columns_of_tab : 0;
            text += blanks > 0 ? QString(blanks, QLatin1Char(' ')) : QString(letter);
            column += std::max(blanks, qsizetype{1});
        }
        spread.push_back(run);
        spread.back().text = to_text(text);
    }
    return spread;
}

QString text_of(const styled_line& line)
{
    QString text;
    for (const styled_run& run : line)
        text += to_qstring(run.text);
    return text;
}

/// The columns of a table. Each begins where some row has a character after a position that is blank in all rows, and
/// ends at the next one, so that together they cover the whole table.
std::vector<column_range> columns_of(const QStringList& rows)
{
    qsizetype width = 0;
    for (const QString& row : rows)
        width = std::max(width, row.size());
    const auto is_blank = [&](qsizetype place) {
        return std::ranges::all_of(
            rows, [place](const QString& row) { return place >= row.size() || row[place] == QLatin1Char(' '); });
    };
    std::vector<column_range> columns;
    bool behind_blank = true;
    for (qsizetype place = 0; place < width; ++place) {
        const bool blank = is_blank(place);
        if (!blank && behind_blank) {
            if (!columns.empty()) columns.back().to = place;
            columns.push_back({columns.empty() ? 0 : place, width});
        }
        behind_blank = blank;
    }
    return columns;
}

/// Whether the first column contains names of rows: below its heading it is not only numbers.
bool names_rows(const QStringList& rows, const column_range& first)
{
    return std::any_of(rows.begin() + 1, rows.end(), [&](const QString& row) {
        const QString cell = row.mid(first.from, first.to - first.from).trimmed();
        return !cell.isEmpty() && !is_numeric(to_text(cell));
    });
}

/// Joins columns to blocks of at most `fitting` characters, including `repeated` ones in front of each but the first.
std::vector<column_range> blocks_of(const std::vector<column_range>& columns, qsizetype repeated, qsizetype fitting)
{
    std::vector<column_range> blocks;
    for (column_range column : columns) {
        const qsizetype room_of_last = blocks.size() <= 1 ? fitting : fitting - repeated;
        if (!blocks.empty() && column.to - blocks.back().from <= room_of_last) {
            blocks.back().to = column.to;
            continue;
        }
        for (qsizetype room = blocks.empty() ? fitting : fitting - repeated; column.to - column.from > room;
             room = fitting - repeated) {
            blocks.push_back({column.from, column.from + room});
            column.from += room;
        }
        blocks.push_back(column);
    }
    return blocks;
}

void add_in_blocks(std::vector<styled_line>& broken, std::span<const styled_line> table, int fitting)
{
    std::vector<styled_line> rows;
    QStringList texts;
    for (const styled_line& line : table) {
        rows.push_back(without_tabs(line));
        texts.append(text_of(rows.back()));
    }
    const std::vector<column_range> columns = columns_of(texts);
    column_range repeated;
    // A first column that leaves less than a third of the line is not repeated.
    if (columns.size() > 1 && names_rows(texts, columns.front()) && columns.front().to <= fitting * 2 / 3)
        repeated = columns.front();
    bool first = true;
    for (const column_range& block : blocks_of(columns, repeated.to, fitting)) {
        if (!first) broken.emplace_back();
        for (const styled_line& row : rows) {
            styled_line part = first ? styled_line{} : part_of_line(row, repeated.from, repeated.to);
            styled_line rest = part_of_line(row, block.from, block.to);
            part.insert(part.end(), rest.begin(), rest.end());
            broken.push_back(std::move(part));
        }
        first = false;
    }
}

} // namespace

std::vector<styled_line> in_blocks_of_columns(std::span<const styled_line> lines, const page_letters& fitting)
{
    std::vector<styled_line> broken;
    for (auto line = lines.begin(); line != lines.end();) {
        const auto end = std::find_if_not(line, lines.end(), is_fixed_width);
        if (line == end) {
            broken.push_back(*line++);
            continue;
        }
        const std::span<const styled_line> table(line, end);
        int room = fitting(table.front().front());
        qsizetype widest = 0;
        for (const styled_line& row : table) {
            room = std::min(room, fitting(row.front()));
            widest = std::max(widest, text_of(without_tabs(row)).trimmed().size());
        }
        if (widest > room && table.size() > 1)
            add_in_blocks(broken, table, std::max(room, 1));
        else
            broken.insert(broken.end(), table.begin(), table.end());
        line = end;
    }
    return broken;
}

} // namespace kelvarin
