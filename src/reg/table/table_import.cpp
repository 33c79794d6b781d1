// SPDX-License-Identifier: MIT
#include "reg/table/table_import.h"

#include "expr/basParse.h"
#include "platform/run_time_text.h"
#include "reg/table/delimited_reader.h"
#include "reg/table/import_bytes.h"
#include "reg/table/table_cells.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <set>
#include <utility>

namespace kelvarin
{

namespace
{

/// A table gets one row more than its text has.
constexpr std::int64_t most_imported_rows = largest_table_extent - 1;

constexpr const char* too_many_cells = "it has more cells than a table can have";

std::string in_quotes(std::string_view text)
{
    // Enough to recognise a cell.
    constexpr std::size_t most_shown = 40;
    return "'" + (text.size() > most_shown ? std::string(text.substr(0, most_shown)) + "..." : std::string(text)) + "'";
}

/// "1 line is" or "5 lines are".
std::string counted(std::int64_t count, std::string_view one, std::string_view many)
{
    return std::to_string(count) + " " + std::string(count == 1 ? one : many);
}

/// `head` as a name that formulas can use and no other column has; empty if nothing is left of it.
std::string usable_name(std::string_view head, const std::set<std::string>& taken)
{
    const auto is_usable = [](char c) {
        return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z') || (c >= '0' && c <= '9') || c == '_';
    };
    std::string name;
    for (const char c : head)
        if (is_usable(c))
            name += c;
        else if (!name.empty() && name.back() != '_')
            name += '_';
    while (!name.empty() && !is_usable(head.back()) && name.back() == '_')
        name.pop_back();
    if (name.empty()) return {};
    if (!is_valid_name(name)) name.insert(0, 1, 'C');
    std::string unique = name;
    for (int number = 2; taken.contains(unique); ++number)
        unique = name + "_" + std::to_string(number);
    return unique;
}

/// Cells of one sort that the user should look at, with the first of them.
struct cell_tally
{
    std::int64_t count = 0;
    std::size_t first_row = 0;
    std::size_t first_column = 0;
    std::string first_text;

    void add(std::size_t row, std::size_t column, const std::string& text)
    {
        if (count++ > 0) return;
        first_row = row;
        first_column = column;
        first_text = text;
    }
};

/// Collects the records of a text column by column.
class table_importer
{
public:
    table_importer(const import_form& form, const table_content& current)
        : form_(form), current_(current),
          reader_(form.delimiter,
                  [this](std::vector<std::string>& cells, std::int64_t line) { return take_record(cells, line); })
    {
    }

    /// Returns false if no more is wanted.
    bool read(std::string_view bytes) { return reader_.read(bytes_.take(bytes)); }
    import_result finish();

private:
    bool take_record(std::vector<std::string>& cells, std::int64_t line);
    void take_cell(std::size_t row, std::size_t column, const std::string& cell);
    void name_columns(table_content& content);
    table_content made_table();
    std::vector<std::string> notes(const table_content& content) const;
    void note_cells(std::vector<std::string>& told, const table_content& content) const;
    void note_lines(std::vector<std::string>& told) const;

    import_form form_;
    const table_content& current_;
    import_bytes bytes_;
    delimited_reader reader_;

    bool any_record_ = false;
    std::vector<std::string> heads_;
    /// As long as the last filled cell of each asks for.
    std::vector<std::vector<std::string>> columns_;
    std::size_t rows_ = 0;
    std::size_t first_length_ = 0;

    line_tally ragged_, blank_;
    cell_tally texts_, too_large_, points_;
    std::vector<std::pair<std::string, std::string>> renamed_;
    /// The line from which on there was no more room; 0 if there was.
    std::int64_t left_out_from_ = 0;
    bool too_many_ = false;
};

bool table_importer::take_record(std::vector<std::string>& cells, std::int64_t line)
{
    if (cells.empty()) {
        blank_.add(line);
        return true;
    }
    if (!std::exchange(any_record_, true)) {
        first_length_ = cells.size();
        if (form_.has_header) {
            for (const std::string& cell : cells)
                heads_.push_back(field_text(to_utf8(cell)));
            columns_.resize(heads_.size());
            return true;
        }
    }
    if (rows_ == most_imported_rows) {
        left_out_from_ = line;
        return false;
    }
    if (cells.size() != first_length_) ragged_.add(line);
    columns_.resize(std::max(columns_.size(), cells.size()));
    too_many_ = columns_.size() > static_cast<std::size_t>(largest_table_extent) ||
                static_cast<long long>((rows_ + 2) * columns_.size()) > most_table_cells;
    if (too_many_) return false;
    for (std::size_t column = 0; column < cells.size(); ++column)
        take_cell(rows_, column, cells[column]);
    ++rows_;
    return true;
}

void table_importer::take_cell(std::size_t row, std::size_t column, const std::string& cell)
{
    const std::string read = field_text(to_utf8(cell));
    if (read.empty()) return;
    std::string text = with_decimal_point(read, form_.decimal_sign);
    const cell_kind kind = parse_cell(text).kind;
    if (kind == cell_kind::text)
        texts_.add(row, column, text);
    else if (kind == cell_kind::too_large)
        too_large_.add(row, column, text);
    else if (form_.decimal_sign == ',' && read.find('.') != std::string::npos)
        points_.add(row, column, text);
    columns_[column].resize(row);
    columns_[column].push_back(std::move(text));
}

void table_importer::name_columns(table_content& content)
{
    std::set<std::string> taken;
    std::vector<bool> named(content.names.size());
    for (std::size_t column = 0; column < heads_.size(); ++column) {
        std::string name = usable_name(heads_[column], taken);
        if (name.empty()) continue;
        if (name != heads_[column]) renamed_.emplace_back(heads_[column], name);
        taken.insert(name);
        content.names[column] = std::move(name);
        named[column] = true;
    }
    // A default name may be a head of the file.
    for (std::size_t column = 0; column < content.names.size(); ++column)
        if (!named[column]) content.names[column] = usable_name(content.names[column], taken);
}

table_content table_importer::made_table()
{
    const table_size filled = {static_cast<int>(rows_), static_cast<int>(columns_.size())};
    table_content content(current_.new_size);
    content.grow(size_to_hold(filled, current_.new_size));
    content.calc_digits = current_.calc_digits;
    name_columns(content);
    for (std::size_t column = 0; column < columns_.size(); ++column) {
        if (columns_[column].empty()) continue;
        columns_[column].resize(static_cast<std::size_t>(content.rows()));
        content.cells.set_column(static_cast<int>(column), std::move(columns_[column]));
    }
    return content;
}

void table_importer::note_cells(std::vector<std::string>& told, const table_content& content) const
{
    const auto add = [&](const cell_tally& tally, std::string_view one, std::string_view many) {
        if (tally.count == 0) return;
        told.push_back(counted(tally.count, one, many) + (tally.count == 1 ? ": " : ", the first: ") +
                       in_quotes(tally.first_text) + " in row " + std::to_string(tally.first_row + 1) + ", column " +
                       content.name(static_cast<int>(tally.first_column)) + ".");
    };
    add(texts_, "cell is no number and stays as it is", "cells are no numbers and stay as they are");
    add(too_large_, "number is too large", "numbers are too large");
    add(points_, "number has a decimal point in place of a comma", "numbers have a decimal point in place of a comma");
}

void table_importer::note_lines(std::vector<std::string>& told) const
{
    const auto add = [&](const line_tally& tally, std::string_view one, std::string_view many) {
        if (tally.count == 0) return;
        told.push_back(counted(tally.count, one, many) + (tally.count == 1 ? " (line " : " (the first: line ") +
                       std::to_string(tally.first_line) + ").");
    };
    add(ragged_, "line has not as many cells as the first one", "lines have not as many cells as the first one");
    add(blank_, "blank line was left out", "blank lines were left out");
    add(reader_.unclosed_quotations(), "quotation mark has no second one and stays as it is",
        "quotation marks have no second one and stay as they are");
    add(reader_.nul_characters(), "NUL character was left out", "NUL characters were left out");
    if (reader_.lone_returns().count < reader_.line_ends())
        add(reader_.lone_returns(), "line ends in a CR alone", "lines end in a CR alone");
    if (left_out_from_ > 0)
        told.push_back("A table has room for " + std::to_string(most_imported_rows) +
                       " rows: the file was read up to line " + std::to_string(left_out_from_ - 1) + ".");
}

std::vector<std::string> table_importer::notes(const table_content& content) const
{
    std::vector<std::string> told;
    note_cells(told, content);
    note_lines(told);
    if (!renamed_.empty()) {
        const auto& [head, name] = renamed_.front();
        told.push_back(counted(static_cast<std::int64_t>(renamed_.size()), "name was", "names were") +
                       " changed so that formulas can use " + (renamed_.size() == 1 ? "it: " : "them, the first: ") +
                       in_quotes(head) + " is " + name + " now.");
    }
    return told;
}

import_result table_importer::finish()
{
    if (!too_many_ && left_out_from_ == 0 && reader_.read(bytes_.finish())) reader_.finish();
    if (too_many_) return {{}, too_many_cells, {}};
    if (const std::int64_t line = reader_.too_long_cell(); line > 0)
        return {{},
                "line " + std::to_string(line) + " has a cell of more than " +
                    std::to_string(delimited_reader::most_cell_bytes) + " characters",
                {}};
    if (!any_record_) return {{}, "it is empty", {}};
    import_result result;
    result.content = made_table();
    result.notes = notes(*result.content);
    return result;
}

} // namespace

import_result import_text(std::string_view text, const import_form& form, const table_content& current)
{
    table_importer importer(form, current);
    importer.read(text);
    return importer.finish();
}

import_result import_file(const std::filesystem::path& path, const import_form& form, const table_content& current,
                          const std::function<bool()>& stop_asked)
{
    table_importer importer(form, current);
    bool stopped = false;
    const std::optional<file_failure> failure = read_in_pieces(path, [&](std::string_view piece) {
        stopped = stop_asked();
        return !stopped && importer.read(piece);
    });
    if (failure) return {{}, failure->reason, {}};
    if (stopped) return {{}, "interrupted", {}};
    return importer.finish();
}

import_sample read_import_sample(const std::filesystem::path& path)
{
    constexpr std::size_t enough = std::size_t{64} * 1024;
    import_sample sample;
    import_bytes bytes;
    bool is_whole = true;
    const std::optional<file_failure> failure = read_in_pieces(path, [&](std::string_view piece) {
        sample.text += bytes.take(piece.substr(0, enough));
        return is_whole = piece.size() < enough;
    });
    if (failure) sample.failure = *failure;
    if (is_whole) sample.text += bytes.finish();
    // The last line may not be complete.
    const std::size_t end = sample.text.find_last_of("\r\n");
    if (!is_whole && end != std::string::npos) sample.text.resize(end + 1);
    return sample;
}

} // namespace kelvarin
