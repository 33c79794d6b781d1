// SPDX-License-Identifier: MIT
#include "nle/equations/typed_rows.h"

#include "expr/basParse.h"
#include "nle/equations/row_lines.h"
#include "platform/run_time_text.h"
#include "platform/text_file.h"

#include <algorithm>
#include <array>
#include <utility>

namespace kelvarin
{

namespace
{

/// An expression without the "= 0" with which reports and books write an implicit equation.
std::string_view without_zero(std::string_view expression)
{
    if (!expression.ends_with('0')) return expression;
    const std::string_view before = trimmed(expression.substr(0, expression.size() - 1));
    if (!before.ends_with('=')) return expression;
    const std::string_view left = before.substr(0, before.size() - 1);
    // "a == 0" and "a >= 0" are comparisons.
    const bool compares = !left.empty() && std::string_view("=<>").find(left.back()) != std::string_view::npos;
    return compares ? expression : trimmed(left);
}

/// The first cell of a line whose cells are separated by tabs; removes it with its tab.
std::string_view take_cell(std::string_view& line)
{
    const std::size_t tab = line.find('\t');
    const std::string_view cell = line.substr(0, tab);
    line.remove_prefix(tab == std::string_view::npos ? line.size() : tab + 1);
    return cell;
}

std::vector<std::string_view> words_of(std::string_view line)
{
    std::vector<std::string_view> words;
    while (!(line = trimmed(line)).empty()) {
        const std::size_t end = std::min(line.find_first_of(" \t"), line.size());
        words.push_back(line.substr(0, end));
        line.remove_prefix(end);
    }
    return words;
}

/// A line without the number of its row, "[3] ". `numbered` tells whether there was one.
std::string_view without_number(std::string_view line, bool& numbered)
{
    line = trimmed(line);
    numbered = false;
    const std::size_t end = line.find(']');
    if (!line.starts_with('[') || end == std::string_view::npos || !is_numeric(line.substr(1, end - 1))) return line;
    numbered = true;
    return trimmed(line.substr(end + 1));
}

bool is_same_equation(const typed_row& a, const typed_row& b)
{
    return a.implicit == b.implicit && a.name == b.name && a.expression == b.expression;
}

/// The reader of a text's lines, one after the other.
class text_reader
{
public:
    explicit text_reader(const row_reader& read) : read_(read) {}

    void take(std::string_view whole_line)
    {
        ++number_;
        bool numbered = false;
        const std::string_view line = without_number(whole_line, numbered);
        if (line.empty() || take_head(line)) return;
        std::optional<typed_row> row = read_(line);
        // "f(0) = 1" is the value of a variable f, not an equation of a variable 0.
        const bool unknown = row && row->implicit && is_valid_name(row->name);
        if (!unknown && (take_values(line) || take_line_below(whole_line))) return;
        if (row) return take_row(std::move(*row), line, numbered);
        if (!take_result(line)) result_.others.push_back({number_, std::string(trimmed(whole_line))});
    }

    pasted_text result() { return std::move(result_); }

private:
    /// The head of a report's table of results tells which of its columns has the guesses.
    bool take_head(std::string_view line)
    {
        struct table_head
        {
            std::string_view begin;
            std::string_view guesses;
            std::size_t guess_column;
            std::size_t columns;
        };
        static constexpr std::array<table_head, 2> heads = {
            {{"Variable", "Ini Guess", 3, 4}, {"Variable", "initial value", 1, 5}}};
        for (const table_head& head : heads) {
            if (!line.starts_with(head.begin) || line.find(head.guesses) == std::string_view::npos) continue;
            guess_column_ = head.guess_column;
            columns_ = head.columns;
            return true;
        }
        return false;
    }

    bool take_values(std::string_view line)
    {
        std::vector<typed_value> values = values_of_text(before_comment(line));
        for (typed_value& value : values)
            result_.values.push_back({number_, std::string(line), std::move(value)});
        return !values.empty();
    }

    void take_row(typed_row row, std::string_view line, bool numbered)
    {
        const auto known = std::ranges::find_if(result_.equations,
                                                [&](const auto& other) { return is_same_equation(other.row, row); });
        const auto index = static_cast<std::size_t>(known - result_.equations.begin());
        if (known == result_.equations.end()) result_.equations.push_back({number_, std::string(line), std::move(row)});
        equation_above_ = numbered ? std::optional(index) : std::nullopt;
    }

    /// What a listing or a report says about an equation on indented lines below it.
    bool take_line_below(std::string_view whole_line)
    {
        constexpr std::string_view indent = "    ";
        if (!equation_above_ || !whole_line.starts_with(indent)) return false;
        typed_row& row = result_.equations[*equation_above_].row;
        const std::string_view line = trimmed(whole_line);
        for (const std::string_view label : {"Initial guess:", "Initial value:"}) {
            if (!line.starts_with(label)) continue;
            if (row.implicit) row.value = trimmed(line.substr(label.size()));
            return true;
        }
        if (row.comment.empty()) row.comment = line;
        return true;
    }

    /// A row of a report's table of results: only its guess is of use.
    bool take_result(std::string_view line)
    {
        const std::vector<std::string_view> words = words_of(line);
        const bool is_result = columns_ > 0 && words.size() > 1 && is_valid_name(words.front()) &&
                               std::all_of(words.begin() + 1, words.end(), is_numeric);
        if (!is_result) return false;
        if (words.size() == columns_)
            result_.values.push_back(
                {number_, std::string(line), {std::string(words.front()), std::string(words[guess_column_])}, true});
        return true;
    }

    const row_reader& read_;
    pasted_text result_;
    int number_ = 0;
    std::optional<std::size_t> equation_above_;
    /// 0 while no table of results has begun.
    std::size_t columns_ = 0;
    std::size_t guess_column_ = 0;
};

} // namespace

std::optional<typed_row> row_of_text(std::string_view line, const row_form& form)
{
    std::string_view rest = before_comment(line);
    const bool has_comment = rest.size() < line.size();
    const std::string_view comment = has_comment ? line.substr(rest.size() + 1) : std::string_view();
    const std::string_view equation = take_cell(rest);
    const std::string_view start = trimmed(equation);
    const auto indent = static_cast<std::size_t>(start.empty() ? 0 : start.data() - line.data());
    const std::size_t equals = start.find('=');
    if (equals == std::string_view::npos || trimmed(start.substr(0, equals)).empty()) return std::nullopt;

    const equation_parts parts = parts_of(start, form);
    typed_row row;
    row.implicit = parts.implicit;
    row.text = start;
    row.name = parts.name;
    row.name_offset = indent + parts.name_offset;
    row.expression = parts.implicit ? without_zero(parts.right_side) : parts.right_side;
    row.expression_offset = indent + parts.right_side_offset;
    const std::string_view value = trimmed(take_cell(rest));
    if (row.implicit && !value.empty()) row.value = value;
    row.comment = trimmed(has_comment ? comment : rest);
    return row;
}

std::vector<typed_value> values_of_text(std::string_view line)
{
    std::vector<typed_value> values;
    while (!trimmed(line).empty()) {
        const std::size_t end = std::min(line.find_first_of(",;"), line.size());
        const std::string_view piece = line.substr(0, end);
        line.remove_prefix(std::min(end + 1, line.size()));
        const std::size_t equals = piece.find('=');
        if (equals == std::string_view::npos) return {};
        const equation_parts parts = parts_of(piece, row_form{"", "(0)"});
        if (!parts.implicit || !is_valid_name(parts.name)) return {};
        values.push_back({std::string(parts.name), std::string(parts.right_side)});
    }
    return values;
}

pasted_text read_pasted_text(std::string_view text, const row_reader& read)
{
    text_reader reader(read);
    for (const std::string_view line : split_lines(text))
        reader.take(line);
    return reader.result();
}

} // namespace kelvarin
