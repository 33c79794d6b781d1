// SPDX-License-Identifier: MIT
#include "graph/graph_file.h"

#include "graph/number_text.h"
#include "platform/letter_case.h"
#include "platform/run_time_numbers.h"
#include "platform/run_time_text.h"
#include "platform/runtime_failure.h"
#include "platform/text_file.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <span>
#include <utility>
#include <vector>

namespace kelvarin
{

namespace
{

constexpr std::string_view line_end = "\r\n";
constexpr std::string_view marker = "KVRGRF/V500//";
/// The version 5.0 is read as 50; the file holds three times that in hexadecimal.
constexpr std::string_view version_number = "96";
constexpr std::string_view gap = "NaN";
/// Number of lines before those of the columns.
constexpr std::size_t field_lines = 47;

/// A number, or the mark of a gap.
std::string data_text(double value)
{
    return std::isfinite(value) ? exact_text(value) : std::string(gap);
}

// Reading and writing visit the same fields in the order of their lines, so that they agree. A `Lines` takes each field
// by reference: one class writes it, the other reads it.
template <class Lines> void walk_place(Lines& lines, std::optional<graph_place>& place)
{
    // A file always has positions: 0, 0 represents one that the drawing determines.
    graph_place corner = place.value_or(graph_place());
    lines.number(corner.top);
    lines.number(corner.left);
    if (corner == graph_place())
        place.reset();
    else
        place = corner;
}

template <class Lines> void walk_font(Lines& lines, graph_font& font)
{
    lines.boolean(font.bold);
    lines.boolean(font.italic);
    lines.text(font.name);
    lines.number(font.size);
}

struct graph_counts
{
    int points = 0;
    int curves = 0;
    int functions = 0;
};

template <class Lines> void walk_fields(Lines& lines, graph_content& graph, graph_counts& counts)
{
    lines.text(graph.caption);
    lines.count(counts.points);
    lines.count(counts.curves);
    lines.count(counts.functions);
    lines.text(graph.title);
    lines.text(graph.subtitle);
    lines.whole(graph.ticks);
    lines.whole(graph.line_width);
    lines.whole(graph.border_width);
    lines.whole(graph.margins.top);
    lines.whole(graph.margins.left);
    lines.whole(graph.margins.right);
    lines.whole(graph.margins.bottom);
    walk_place(lines, graph.title_place);
    walk_place(lines, graph.subtitle_place);
    walk_place(lines, graph.legend_place);
    lines.number(graph.window_size.height);
    lines.number(graph.window_size.width);
    lines.number(graph.y_range.min);
    lines.number(graph.y_range.max);
    lines.number(graph.x_range.min);
    lines.number(graph.x_range.max);
    lines.text(graph.x_title);
    lines.text(graph.y_title);
    walk_font(lines, graph.axes_font);
    walk_font(lines, graph.title_font);
    walk_font(lines, graph.subtitle_font);
    lines.boolean(graph.x_manual);
    lines.boolean(graph.y_manual);
    lines.boolean(graph.auto_scale);
    lines.boolean(graph.hor_gridline);
    lines.boolean(graph.ver_gridline);
    lines.boolean(graph.scatter_connected);
    lines.boolean(graph.draw_points);
}

class graph_line_writer
{
public:
    void text(const std::string& value)
    {
        // A line end would shift the following lines.
        std::string line = value;
        std::ranges::replace(line, '\r', ' ');
        std::ranges::replace(line, '\n', ' ');
        text_.append(line).append(line_end);
    }
    void number(double value) { text(data_text(value)); }
    void whole(int value) { text(std::to_string(value)); }
    void count(int value) { whole(value); }
    void boolean(bool value) { text(value ? "True" : "False"); }

    template <class Items, class Form> void joined(const Items& items, const Form& form)
    {
        std::string line;
        bool first = true;
        for (const auto& item : items) {
            if (!std::exchange(first, false)) line += ',';
            line += form(item);
        }
        text(line);
    }

    std::string taken() { return std::move(text_); }

private:
    std::string text_;
};

double number_of(std::string_view text)
{
    return numeric_value(text).value_or(0.0);
}

double data_value(std::string_view text)
{
    const std::string_view item = trimmed(text);
    return item == gap ? std::numeric_limits<double>::quiet_NaN() : number_of(item);
}

bool boolean_of(std::string_view text)
{
    return lower_case(trimmed(text)) == "true" || number_of(text) != 0.0;
}

class graph_line_reader
{
public:
    explicit graph_line_reader(std::span<const std::string_view> lines) : lines_(lines) {}

    bool ok() const { return ok_; }

    void text(std::string& value) { value = std::string(next()); }
    void number(double& value) { value = number_of(next()); }
    void boolean(bool& value) { value = boolean_of(next()); }
    void whole(int& value)
    {
        // Any number is accepted and clamped.
        constexpr double bound = 1e9;
        value = static_cast<int>(round_half_even(std::clamp(number_of(next()), -bound, bound)));
    }
    void count(int& value)
    {
        const std::optional<double> number = numeric_value(next());
        const double rounded = round_half_even(number.value_or(-1.0));
        if (rounded < 0.0 || rounded > largest_file_count)
            ok_ = false;
        else
            value = static_cast<int>(rounded);
    }

    /// The first `count` items of a joined line; further ones are ignored. A line without items may be missing at the
    /// end of a file.
    template <class Take> void joined(std::size_t count, const Take& take)
    {
        if (count == 0 && place_ == lines_.size()) return;
        std::string_view rest = next();
        for (std::size_t i = 0; i < count; ++i) {
            if (i > 0 && rest.data() == nullptr) {
                ok_ = false;
                return;
            }
            const std::size_t comma = rest.find(',');
            take(rest.substr(0, comma));
            rest = comma == std::string_view::npos ? std::string_view() : rest.substr(comma + 1);
        }
    }

private:
    std::string_view next()
    {
        if (place_ == lines_.size()) {
            ok_ = false;
            return "";
        }
        return lines_[place_++];
    }

    std::span<const std::string_view> lines_;
    std::size_t place_ = 0;
    bool ok_ = true;
};

bool is_first_line(std::string_view line)
{
    line = trimmed(line);
    if (!line.ends_with(marker)) return false;
    line.remove_suffix(marker.size());
    return line.find_first_not_of("0123456789ABCDEFabcdef") == std::string_view::npos;
}

/// A comma would shift the following items.
std::string without_commas(std::string text)
{
    std::ranges::replace(text, ',', ';');
    return text;
}

void write_lists(graph_line_writer& lines, const graph_content& graph)
{
    for (const graph_column& column : graph.columns)
        lines.joined(column.values.span(), data_text);
    lines.joined(graph.columns, [](const graph_column& column) { return without_commas(column.name); });
    lines.joined(graph.curve_visible, [](bool visible) { return std::string(visible ? "True" : "False"); });
    lines.joined(graph.functions, [](const graph_function& function) { return without_commas(function.text); });
}

void read_lists(graph_line_reader& lines, graph_content& graph, const graph_counts& counts)
{
    const auto curves = static_cast<std::size_t>(counts.curves);
    const auto points = static_cast<std::size_t>(counts.points);
    graph.columns.assign(curves + 1, graph_column());
    for (graph_column& column : graph.columns) {
        std::vector<double> values;
        lines.joined(points, [&](std::string_view item) { values.push_back(data_value(item)); });
        // Columns have equal lengths; a damaged file is read no further.
        if (!lines.ok()) return;
        column.values = shared_values(std::move(values));
    }
    auto column = graph.columns.begin();
    lines.joined(curves + 1, [&](std::string_view item) { (column++)->name = std::string(item); });
    lines.joined(curves, [&](std::string_view item) { graph.curve_visible.push_back(boolean_of(item)); });
    lines.joined(static_cast<std::size_t>(counts.functions),
                 [&](std::string_view item) { graph.functions.push_back({.text = std::string(item)}); });
}

int file_count(std::size_t count)
{
    if (count > largest_file_count) throw runtime_failure(failure_number::overflow);
    return static_cast<int>(count);
}

} // namespace

std::string write_graph(const graph_content& graph)
{
    graph_counts counts = {file_count(graph.point_count()), file_count(graph.curve_count()),
                           file_count(graph.functions.size())};
    graph_content fields = graph;
    graph_line_writer lines;
    lines.text(std::string(version_number) + std::string(marker));
    walk_fields(lines, fields, counts);
    write_lists(lines, graph);
    return lines.taken();
}

std::optional<graph_content> read_graph(std::string_view text)
{
    const std::vector<std::string_view> lines = split_lines(text);
    if (lines.empty() || !is_first_line(lines.front())) return std::nullopt;
    graph_content graph;
    graph_counts counts;
    graph_line_reader reader(std::span<const std::string_view>(lines).subspan(1));
    walk_fields(reader, graph, counts);
    if (!reader.ok() || counts.points < 1) return std::nullopt;
    // Checked before memory is allocated: the columns and the line of their names.
    if (lines.size() < field_lines + static_cast<std::size_t>(counts.curves) + 2) return std::nullopt;
    if (graph.ticks == 0) graph.ticks = default_ticks;
    read_lists(reader, graph, counts);
    if (!reader.ok()) return std::nullopt;
    return graph;
}

} // namespace kelvarin
